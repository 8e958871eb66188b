// quillon-writer: writes a HEX file into the board's FLASH through its bootloader with
// avrdude. The editor runs it as: quillon-writer /C<port> /W<seconds> /P <params> "<hex>".
#include "avrdudecommand.h"
#include "avrduderunner.h"
#include "writerarguments.h"
#include "writerexit.h"

#include <chrono>
#include <filesystem>
#include <iostream>
#include <thread>

namespace {

int Fail(EWriterExit code, const std::string& message)
{
    std::cerr << "quillon-writer: " << message << std::endl;
    return int(code);
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    CWriterOptions options;
    std::string error;
    if (!CWriterArguments::Parse(args, options, error))
        return Fail(
            EWriterExit::Usage,
            error + "\nusage: quillon-writer /C<port> [/W<0-5>] [/P part:programmer:baud] <hex>");
    if (options.Port.empty())
        return Fail(EWriterExit::NoPort,
                    "no serial port given (/C<port>, for example /C/dev/ttyACM0)");

    // Every fault is found before the wait, so the user never presses reset for nothing.
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(options.HexPath, ignored))
        return Fail(EWriterExit::HexMissing,
                    "the HEX file \"" + options.HexPath + "\" does not exist");
    const std::string program = CAvrdudeRunner::ProgramName();
    const std::string path = CAvrdudeRunner::Locate(program);
    if (path.empty())
        return Fail(EWriterExit::NoAvrdude,
                    "\"" + program + "\" was not found; install avrdude or set QUILLON_AVRDUDE");

    if (options.WaitSeconds > 0) {
        std::cout << "Writing in " << options.WaitSeconds
                  << " s: press the board's reset button now if it does not reset itself."
                  << std::endl;
        std::this_thread::sleep_for(std::chrono::seconds(options.WaitSeconds));
    }
    std::cout.flush();
    const int code = CAvrdudeRunner::Run(path, CAvrdudeCommand::Arguments(options), error);
    if (code < 0)
        return Fail(EWriterExit::NoAvrdude, "\"" + path + "\" could not be started: " + error);
    return code;
}
