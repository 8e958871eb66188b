#pragma once

#include <QByteArray>

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

    // True when an element of the file's bytes lies more than Limit levels deep. Bytes that
    // are no XML answer false: the parse that follows finds that fault.
    static bool Exceeds(const QByteArray& bytes);
};
