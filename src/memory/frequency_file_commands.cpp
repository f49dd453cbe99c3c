#include "memory/frequency_file.h"

namespace tarnvex::memory {

using platform::Answer;
using platform::Failure;

void FrequencyFile::offerToSave(SaveOccasion occasion) {
  if (!memory_.state().MemoryModified) {
    return;
  }
  if (ports_.dialogs.messageBox("Save Changes to Scanlist File?", "Save Changes",
                                platform::kYesNoQuestion) == Answer::Yes) {
    save(occasion);
    memory_.state().MemoryModified = false;
    memory_.history().saved();
  } else if (occasion == SaveOccasion::Exit) {
    keepUnsaved();
  }
}

template <class Work>
Failure FrequencyFile::doInOneStep(const char* name, Work work) {
  const auto step = memory_.history().step(name);
  return work();
}

void FrequencyFile::prepareDialog(const char* title, const char* accept, const char* keep) {
  platform::CommonDialog& dialog = ports_.Dlg1;
  dialog.DialogTitle = title;
  dialog.AcceptCaption = accept;
  dialog.KeepCaption = keep;
  dialog.DefaultExt = "tvf";
  dialog.AsksBeforeReplacing = false;
}

void FrequencyFile::NewPlan() {
  offerToSave();
  prepareDialog("New Frequency File", "New", "Empty");
  ports_.Dlg1.ShowOpen();
  const std::string path = ports_.Dlg1.FileName;
  if (path.empty()) {
    return;
  }
  if (ports_.files.exists(path) &&
      ports_.dialogs.askToDestroy("File exists. Overwrite it?", "Confirm Overwrite",
                                  platform::kYesNoQuestion) != Answer::Yes) {
    return;
  }
  if (!mayReplace(path)) {
    return;
  }
  const bool replaced = ports_.files.exists(path);
  const Failure failure = doInOneStep("New", [&] {
    memory_.clear();
    auto failed = replace(path);
    if (!failed) {
      adopt(path);
    }
    return failed;
  });
  if (!failure && replaced) {
    // Undo may bring back a plan that was in the file just replaced.
    memory_.history().saved();
  }
  if (failure) {
    report(*failure);
  }
  tellBackupFailure();
}

void FrequencyFile::OpenPlan() {
  // Deliberate: after No the plan still counts as changed, so closing the program asks again.
  offerToSave();
  prepareDialog("Open Frequency File", "Open", "Reload");
  ports_.Dlg1.DefaultExt.clear();
  ports_.Dlg1.ShowOpen();
  const std::string path = ports_.Dlg1.FileName;
  if (path.empty()) {
    return;
  }
  const Failure failure = doInOneStep("Open", [&] {
    auto failed = load(path);
    if (!failed) {
      adopt(path);
      resetCursors();
    }
    return failed;
  });
  if (failure) {
    report(*failure);
  }
}

void FrequencyFile::OpenBackup() {
  offerToSave();
  platform::CommonDialog& dialog = ports_.backupDialog;
  dialog.DialogTitle = "Open Backup";
  dialog.AcceptCaption = "Open";
  dialog.InitDir = ports_.backups.folder();
  dialog.FileName.clear();
  dialog.ShowOpen();
  if (dialog.FileName.empty()) {
    return;
  }
  const std::string before = planText();
  const bool taken = ports_.files.taken(kFile);
  const Failure failure = doInOneStep("Open Backup", [&] {
    auto failed = LoadPlanFromFile(dialog.FileName);
    memory_.state().MemoryModified =
        memory_.state().MemoryModified || !failed || planText() != before;
    if (!failed) {
      resetCursors();
    }
    return failed;
  });
  if (failure) {
    report(*failure);
    if (!taken) {
      // A damaged copy must not keep the plan from being saved.
      ports_.files.close(kFile);
    }
  }
}

void FrequencyFile::SavePlan() {
  save(SaveOccasion::Command);
}

void FrequencyFile::save(SaveOccasion occasion) {
  const bool chosen = chooseSaveName();
  const std::string path = ports_.Dlg1.FileName;
  if (!chosen || !mayReplace(path) || !mayReplaceUnread(path)) {
    const std::string kept = occasion == SaveOccasion::Command ? std::string() : keepUnsaved();
    if (occasion == SaveOccasion::Exit) {
      ports_.dialogs.messageBox("The plan was not saved." + kept, "Save Changes",
                                platform::kWarning);
    }
    return;
  }
  // Deliberate: set before writing. A plan counts as saved even if saving fails.
  memory_.state().MemoryModified = false;
  memory_.history().saved();
  if (const auto failure = replace(path)) {
    report(*failure + keepUnsaved());
    // Nothing was replaced.
    backupFailure_.reset();
  } else {
    adopt(path);
    tellBackupFailure();
  }
}

bool FrequencyFile::chooseSaveName() {
  platform::CommonDialog& dialog = ports_.Dlg1;
  // Not the dialog's name, which a cancelled command may have left.
  const std::string& current = memory_.history().file();
  const bool asks = memory_.model().asksBeforeReplacing;
  prepareDialog("Save Frequency File", "Save", "Save to");
  dialog.AsksBeforeReplacing = !asks;
  dialog.OwnFile = current;
  bool settled = false;
  while (!settled) {
    dialog.ShowSave();
    if (dialog.FileName.empty()) {
      return false;
    }
    settled = !asks || dialog.FileName == current || !ports_.files.exists(dialog.FileName) ||
              ports_.dialogs.askToDestroy("Overwrite existing file?", "Confirm Overwrite",
                                          platform::kYesNoQuestion) == Answer::Yes;
  }
  return true;
}

}  // namespace tarnvex::memory
