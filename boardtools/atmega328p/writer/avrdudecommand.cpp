#include "avrdudecommand.h"

std::vector<std::string> CAvrdudeCommand::Arguments(const CWriterOptions& options)
{
    // ":i" names the format, so avrdude does not guess it from the file.
    return {"-c", options.Programmer, "-p", options.Part, "-b", options.Baud,
            "-P", options.Port, "-U", "flash:w:" + options.HexPath + ":i"};
}
