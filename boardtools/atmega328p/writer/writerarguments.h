#pragma once

#include "writeroptions.h"

#include <string>
#include <vector>

// Reads the options the editor composes: /C<port> /W<seconds> /P <part:programmer:baud>
// and the HEX path, in any order, option letters in either case.
class CWriterArguments
{
  public:
    // False with a message when the line cannot be read; a missing port is not a fault
    // here, the caller decides (it leaves Port empty).
    static bool Parse(const std::vector<std::string>& args, CWriterOptions& options,
                      std::string& error);

    // Reads "part[:programmer[:baud]]"; fields left out keep their value.
    static bool ParseParameters(const std::string& text, CWriterOptions& options,
                                std::string& error);

    // The board files name the processor ("atmega328p"); avrdude wants its short id.
    static std::string AvrdudePart(const std::string& processor);

    static constexpr int MaxWaitSeconds = 5;
};
