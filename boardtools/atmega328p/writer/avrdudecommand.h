#pragma once

#include "writeroptions.h"

#include <string>
#include <vector>

// avrdude's arguments for one writing, program name excluded.
class CAvrdudeCommand
{
  public:
    static std::vector<std::string> Arguments(const CWriterOptions& options);
};
