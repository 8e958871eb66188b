// A stand-in for the board's tools in the build tests. It acts out one scenario, chosen by
// "--act SCENARIO" on its command line or else by the QUILLON_FAKE_SCENARIO variable, and
// appends its arguments to the file QUILLON_FAKE_RECORD names.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

void Write(const std::string& name, const std::string& text)
{
    std::ofstream(name, std::ios::binary) << text;
}

} // namespace

int main(int argc, char** argv)
{
    std::string scenario;
    int first = 1;
    if (argc > 2 && std::string(argv[1]) == "--act") {
        scenario = argv[2];
        first = 3;
    } else if (const char* chosen = std::getenv("QUILLON_FAKE_SCENARIO")) {
        scenario = chosen;
    }
    if (const char* record = std::getenv("QUILLON_FAKE_RECORD")) {
        std::ofstream out(record, std::ios::app);
        out << scenario;
        for (int i = first; i < argc; ++i)
            out << " [" << argv[i] << "]";
        out << " cwd=" << std::filesystem::current_path().string() << "\n";
    }

    const std::string hex = ":00000001FF\n";
    if (scenario == "hex") {
        Write("BASE.hex", hex);
    } else if (scenario == "named-hex") {
        // The compiler gets the location file first: its name with ".hex" is the fallback.
        Write(std::filesystem::path(argv[first]).stem().string() + ".hex", hex);
    } else if (scenario == "err") {
        Write("x.err", "Panel (3,4): the net has two drivers.\r\n");
        return 1;
    } else if (scenario == "crash") {
        std::abort();
    } else if (scenario == "empty-hex") {
        Write("BASE.hex", "");
    } else if (scenario == "fail") {
        return 3;
    } else if (scenario == "print") {
        // Lines end as a Windows tool ends them; the log shows them without the CR.
        std::printf("first line\r\nsecond line\r\n");
    } else if (scenario == "sleep") {
        const char* ms = std::getenv("QUILLON_FAKE_SLEEP_MS");
        std::this_thread::sleep_for(std::chrono::milliseconds(ms ? std::atoi(ms) : 5000));
        // Proof that nobody ended it early.
        if (const char* record = std::getenv("QUILLON_FAKE_RECORD"))
            std::ofstream(record, std::ios::app) << "woke\n";
    }
    return 0;
}
