#pragma once

#include "simtarget.h"

#include <QString>

class CBoardInfo;

// The engine's target for a board at one of its clock sources (negative: the board's
// default). False, with why in the user's language, for a board that cannot be simulated.
bool SimTargetOf(const CBoardInfo& board, int clockSource, CSimTarget& target, QString& why);
