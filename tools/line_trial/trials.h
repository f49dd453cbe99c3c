#pragma once

#include "line_trial/report.h"

/// The parts of the trial. `quick` takes a smaller share of each.
namespace tarnvex::trial {

/// ID search and ID hold for ten minutes each, with a streamed line between one command in three
/// and its reply.
void followIds(Report& report, bool quick);
/// Every fault at every command of a load and of some ticks, in every mode.
void strikePolls(Report& report, bool quick);
/// The same faults at the commands of every kind of transfer.
void strikeTransfers(Report& report, bool quick);
/// Thousands of exchanges on a line that spoils one byte in a hundred.
void hearNoise(Report& report, bool quick);
/// Transfers of all channels and all IDs with stray lines between the commands.
void transferAll(Report& report, bool quick);

}  // namespace tarnvex::trial
