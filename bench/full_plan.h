#pragma once

#include "platform/table.h"

namespace tarnvex::bench {

/// Fills every cell of the plan's two tables with 300 conventional channels and 1000 talkgroups.
/// Different numbers give different texts.
void fillPlan(platform::Table& channels, platform::Table& talkgroups, int number = 0);

}  // namespace tarnvex::bench
