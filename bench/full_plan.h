#pragma once

#include "platform/table.h"

namespace tarnvex::bench {

/// Gives every cell of the plan's two tables a text, of 300 channels that are no trunked ones and
/// of 1000 talkgroups. Different numbers give different texts.
void fillPlan(platform::Table& channels, platform::Table& talkgroups, int number = 0);

}  // namespace tarnvex::bench
