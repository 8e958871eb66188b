#include "avrdudecommand.h"

namespace {

// The boot loaders avrdude talks to with the STK500 version 1 protocol. When nothing
// answers, avrdude waits 5 s for each sync and tries ten times, which outlasts the editor's
// one-minute watch; a boot loader that is there answers the first sync, so one is tried.
bool SyncsOnce(const std::string& programmer)
{
    return programmer == "arduino" || programmer == "stk500v1";
}

} // namespace

std::vector<std::string> CAvrdudeCommand::Arguments(const CWriterOptions& options)
{
    std::vector<std::string> args = {"-c", options.Programmer, "-p", options.Part,
                                     "-b", options.Baud,       "-P", options.Port};
    if (SyncsOnce(options.Programmer)) {
        args.push_back("-x");
        args.push_back("attempts=1");
    }
    // ":i" names the format, so avrdude does not guess it from the file.
    args.push_back("-U");
    args.push_back("flash:w:" + options.HexPath + ":i");
    return args;
}
