#include <gtest/gtest.h>

#include "link/scanner_commands.h"

namespace tarnvex::link {
namespace {

/// A reply in which every character between the fields is an 'x', which no reply class may read.
constexpr const char* kChannel = "x012xxx1551150xTNxDNxLNxxxxRNxx05";
constexpr const char* kSignal = "x018xxx1551150";
constexpr const char* kTrunkId = "xxxB7x001234";

TEST(Commands, ReadsTheSignal) {
  const SignalReply signal(kSignal);
  EXPECT_EQ(signal.level(), 18);
  EXPECT_EQ(signal.tableFrequency(), "155.1150");
  EXPECT_EQ(signal.shownFrequency(), "155.1150");
  // The table's form is converted from a number; the shown one is put together from the digits.
  EXPECT_EQ(SignalReply("x018xxx0290000").tableFrequency(), "29.0000");
  EXPECT_EQ(SignalReply("x018xxx0290000").shownFrequency(), "29.0000");
  EXPECT_EQ(SignalReply("x018xxx0000000").shownFrequency(), ".0000");
  EXPECT_EQ(SignalReply("x018xxx155").tableFrequency(), "0.0155");
  EXPECT_EQ(SignalReply("x018xxx15511").shownFrequency(), "155.11");
  EXPECT_EQ(SignalReply("xABCxxx15x1150").level(), std::nullopt);
  EXPECT_EQ(SignalReply("xABCxxx15x1150").tableFrequency(), std::nullopt);
}

TEST(Commands, ReadsTheChannel) {
  const ChannelReply channel(kChannel);
  EXPECT_FALSE(channel.isNothing());
  EXPECT_EQ(channel.number(), 12);
  EXPECT_EQ(channel.shownFrequency(), "155.1150");
  EXPECT_TRUE(channel.trunked() && channel.delay() && channel.lockout());
  EXPECT_EQ(channel.tone(), 5);
  const ChannelReply off("x300xxx0290000xTFxDFxLFxxxxRFxxNG");
  EXPECT_EQ(off.number(), 300);
  EXPECT_EQ(off.shownFrequency(), "29.0000");
  EXPECT_FALSE(off.trunked() || off.delay() || off.lockout());
  EXPECT_EQ(off.tone(), std::nullopt);
  EXPECT_EQ(ChannelReply("x000xxx0000000").shownFrequency(), "0.0000");
  EXPECT_TRUE(ChannelReply("NG").isNothing());
}

TEST(Commands, ReadsTheShortReplies) {
  const TrunkIdReply id(kTrunkId);
  EXPECT_EQ(id.bank() + "/" + id.slot() + "/" + id.id() + "/" + id.place(), "B/7/001234/B7");
  EXPECT_EQ(TrunkIdReply("xxxB0x1234-5").slot(), "10");
  EXPECT_EQ(bankLetters("xxxACJ") + bankLetters("NG"), "ACJ");
  EXPECT_EQ(priorityChannelOf("xxxx012"), 12);
  EXPECT_EQ(priorityChannelOf("xxxxNG"), std::nullopt);
  EXPECT_EQ(searchLimit("xxx9560000x"), "956.0000");
  EXPECT_EQ(modeOf("MD07MD08") + modeOf("MD"), "MD07MD");
}

TEST(Commands, ReadsWhatOnlyTheHandHeldSends) {
  const IdentityReply identity("xxBC245XLTxx0123456789x215");
  EXPECT_EQ(identity.polledModel() + identity.polledSerialNumber(), "BC245XLTx0123456789");
  EXPECT_EQ(priorityPlace("xxxB7") + priorityPlace("NG"), "B7");
  EXPECT_EQ(TrunkTypeReply("xxxAxE2-800").bank() + TrunkTypeReply("xxxAxE2-800").word(), "AE2-800");
  EXPECT_TRUE(IdLine("ID   001234").isId() && !IdLine("MD09").isId());
  EXPECT_EQ(IdLine("IDxx 001234x").id(), " 001234");
  EXPECT_TRUE(IdLine("IDxx NONE").saysNoId());
}

TEST(Commands, TellATextFromNoise) {
  for (const char* text : {"155.1150", "29.0000", "1.2345"}) {
    EXPECT_TRUE(readsAsFrequency(text)) << text;
  }
  for (const char* text : {"", ".", "155.115", "155.11500", ".1150", "1300.0000", "155,1150",
                           "1.5.1150", "Scanning", "15 .1150", "RR ."}) {
    EXPECT_FALSE(readsAsFrequency(text)) << text;
  }
  for (const char* text : {"001234", "12-345", "------", "1234  ",
                           "12\xFE"
                           "345"}) {
    EXPECT_TRUE(readsAsId(text)) << text;
  }
  for (const char* text : {"", "00123", "0012345", "00#234", "ERR   "}) {
    EXPECT_FALSE(readsAsId(text)) << text;
  }
  for (const char* text : {"C000", "C301", "ERR", "", "C1"}) {
    EXPECT_EQ(ChannelReply(text).number().value_or(0), text == std::string("C1") ? 1 : 0) << text;
  }
}

TEST(Commands, ReadsStreamedIds) {
  EXPECT_EQ(searchedId("xxxxxxxx001234x"), "001234");
  EXPECT_FALSE(saysNoId("xxxxxxxx001234"));
  EXPECT_TRUE(saysNoId("xxxxxxxx001234 E")) << "the letter may be anywhere";
  EXPECT_TRUE(saysNoId("ExxxxxxX001234"));
  EXPECT_TRUE(saysNoId("xxxxxxxx"));
  EXPECT_TRUE(saysNoId(""));
  EXPECT_EQ(heldId("xxxSx001234"), "001234");
  EXPECT_EQ(heldId("xxxSx0012"), std::nullopt);
  EXPECT_EQ(heldId("xxxSx00#234"), std::nullopt);
  EXPECT_EQ(heldId("xxxxS001234"), std::nullopt);
  EXPECT_EQ(heldId(""), std::nullopt);
}

}  // namespace
}  // namespace tarnvex::link
