#include "sizetext.h"

namespace {

struct CEntry
{
    int Id;
    const char* English;
    const char* Japanese;
};

constexpr CEntry kEntries[] = {
#define QUILLON_STRING(name, id, english, japanese) {id, english, japanese},
#include "strings.inc"
#undef QUILLON_STRING
};

bool japaneseText = false;

} // namespace

void CSizeText::SetJapanese(bool japanese)
{
    japaneseText = japanese;
}

std::string CSizeText::Format(int id, std::initializer_list<std::string> args)
{
    std::string pattern;
    for (const CEntry& entry : kEntries)
        if (entry.Id == id)
            pattern = japaneseText ? entry.Japanese : entry.English;
    std::string text;
    auto arg = args.begin();
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '%' && i + 1 < pattern.size() &&
            (pattern[i + 1] == 'd' || pattern[i + 1] == 's')) {
            text += arg != args.end() ? *arg++ : std::string();
            ++i;
        } else {
            text += pattern[i];
        }
    }
    return text;
}
