#pragma once

#include <QString>

// The XML files of a board folder are small and a few levels deep, but the DOM reader takes
// time that grows with the square of the nesting depth: a 700 KB file nested 100,000 levels
// keeps it busy for more than half a minute. Such a file is refused by a quick scan before
// the DOM parse.
class CXmlDepth
{
  public:
    // A board file and a panel definition file need four levels; the rest is room for
    // elements a later board may add.
    static constexpr int Limit = 16;

    // True when an element of the file lies more than Limit levels deep. A file that cannot
    // be opened or is no XML answers false: the parse that follows finds that fault.
    static bool Exceeds(const QString& path);
};
