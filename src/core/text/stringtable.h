#pragma once

#include <QString>
#include <QVariant>

#include <initializer_list>
#include <span>

enum class ELanguage
{
    English,
    Japanese
};

// Every user-visible text has a number. Numbers below 60000 and the 594xx block are the
// resource numbers the texts have always had; texts that never had one start at 61000.
namespace Ids {
enum : int
{
#define QUILLON_STRING(name, id, english, japanese) name = id,
#include "strings.inc"
#undef QUILLON_STRING
};
} // namespace Ids

// The one table of user-visible texts in both languages. The language is chosen once at
// start-up; everything that shows text asks this table by id.
class CStringTable
{
  public:
    struct CEntry
    {
        int Id;
        const char* Name;
        const char* English;
        const char* Japanese;
    };

    static void SetLanguage(ELanguage language);
    static ELanguage GetLanguage();

    // The text of an id in the current language, "" for an id the table does not know.
    static QString Get(int id);
    // The text of an id used as a printf-style pattern ("%s", "%d", "%02d", "%3d%%").
    static QString Format(int id, std::initializer_list<QVariant> args);

    static std::span<const CEntry> Entries();
};

// printf-style formatting for %s, %d (flags "0" and "-", a width) and %%, on QStrings, so
// patterns in either language format the same way without byte-level pitfalls.
QString FormatText(const QString& pattern, std::initializer_list<QVariant> args);
