#pragma once

#include <memory>

class CPanelCell;

// What the layout view asks the frame's panel bars: the entry the user chose there, if
// any. The process bar's choice comes before the input/output bar's.
class IPanelChooser
{
  public:
    // Drags from a panel bar carry this format: the entry's area as a decimal, a line
    // feed, then the prototype's definition line, UTF-8.
    static constexpr const char* kMimeType = "application/x-quillon-panel";

    virtual ~IPanelChooser() = default;

    // A new cell copied from the chosen entry's prototype (ports, weight and all), which
    // the caller places or drops; null when nothing is chosen.
    virtual std::unique_ptr<CPanelCell> TakeChosenCell() = 0;
    virtual bool HasChosen() const = 0;
    // The chosen entry's area (CPanel::EArea); AreaNone when nothing is chosen.
    virtual int ChosenArea() const = 0;
    virtual void ClearChoice() = 0;
    // The use counts changed: entries that are used up are disabled and lose the choice.
    virtual void Refresh() = 0;
};
