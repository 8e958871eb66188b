#pragma once

#include <initializer_list>
#include <string>

// The size check's messages from the program's string table, in English or Japanese,
// filled with numbers. The check runs without Qt, so it reads the table itself.
class CSizeText
{
  public:
    static void SetJapanese(bool japanese);
    // The pattern of the id filled with the numbers in order ("%d" and "%s" only).
    static std::string Format(int id, std::initializer_list<std::string> args);
};
