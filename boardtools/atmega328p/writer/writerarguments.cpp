#include "writerarguments.h"

#include <algorithm>
#include <cctype>

namespace {

bool AllDigits(const std::string& text)
{
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); });
}

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return text;
}

// A HEX path on Linux starts with "/" as the options do ("/Cards/BASE.hex"), so an
// argument counts as an option only when what follows the letter has the option's shape.
char OptionLetter(const std::string& arg)
{
    if (arg.size() < 2 || arg[0] != '/')
        return 0;
    const char letter = char(std::toupper(static_cast<unsigned char>(arg[1])));
    const std::string value = arg.substr(2);
    switch (letter) {
    case 'C':
        // A COM number, or a device path.
        return AllDigits(value) || (value.size() > 1 && value[0] == '/') ? 'C' : 0;
    case 'W':
        return AllDigits(value) ? 'W' : 0;
    case 'P':
        return value.empty() || value.find('/') == std::string::npos ? 'P' : 0;
    default:
        return 0;
    }
}

} // namespace

std::string CWriterArguments::AvrdudePart(const std::string& processor)
{
    const std::string name = Lower(processor);
    if (name.rfind("atmega", 0) == 0 && name.size() > 6)
        return "m" + name.substr(6);
    if (name.rfind("attiny", 0) == 0 && name.size() > 6)
        return "t" + name.substr(6);
    return name;
}

bool CWriterArguments::ParseParameters(const std::string& text, CWriterOptions& options,
                                       std::string& error)
{
    std::string fields[3];
    int count = 0;
    std::size_t start = 0;
    for (;;) {
        const std::size_t colon = text.find(':', start);
        if (count == 3) {
            error = "too many fields in /P \"" + text + "\" (part:programmer:baud)";
            return false;
        }
        fields[count++] = text.substr(start, colon == std::string::npos ? colon : colon - start);
        if (colon == std::string::npos)
            break;
        start = colon + 1;
    }
    if (!fields[2].empty() && !AllDigits(fields[2])) {
        error = "the baud rate in /P \"" + text + "\" is not a number";
        return false;
    }
    if (!fields[0].empty())
        options.Part = AvrdudePart(fields[0]);
    if (!fields[1].empty())
        options.Programmer = fields[1];
    if (!fields[2].empty())
        options.Baud = fields[2];
    return true;
}

bool CWriterArguments::Parse(const std::vector<std::string>& args, CWriterOptions& options,
                             std::string& error)
{
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        switch (OptionLetter(arg)) {
        case 'C':
            options.Port = arg.substr(2);
            break;
        case 'W': {
            const std::string value = arg.substr(2);
            // At most a few digits are kept, so a long number cannot overflow.
            const int seconds = value.size() > 3 ? MaxWaitSeconds + 1 : std::stoi(value);
            if (seconds > MaxWaitSeconds) {
                error = "the wait " + value + " is out of range (0 to " +
                        std::to_string(MaxWaitSeconds) + " seconds)";
                return false;
            }
            options.WaitSeconds = seconds;
            break;
        }
        case 'P': {
            // "/P value" as the editor writes it, or "/Pvalue".
            std::string value = arg.substr(2);
            if (value.empty()) {
                if (i + 1 == args.size()) {
                    error = "/P needs part:programmer:baud";
                    return false;
                }
                value = args[++i];
            }
            if (!ParseParameters(value, options, error))
                return false;
            break;
        }
        default:
            if (!options.HexPath.empty()) {
                error = "more than one HEX file: \"" + options.HexPath + "\" and \"" + arg + "\"";
                return false;
            }
            if (arg.empty()) {
                error = "an empty HEX file name";
                return false;
            }
            options.HexPath = arg;
        }
    }
    if (options.HexPath.empty()) {
        error = "no HEX file given";
        return false;
    }
    return true;
}
