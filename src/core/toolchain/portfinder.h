#pragma once

#include <QString>

#include <memory>

// Where the FLASH writer finds the board: the text that follows its "/C" option.
class IPortFinder
{
  public:
    virtual ~IPortFinder() = default;

    // The port of the first attached board that announces itself as interfaceName: the COM
    // number in decimal on Windows ("12"), the serial device path elsewhere ("/dev/ttyACM0").
    // "" when no such board is attached.
    virtual QString FindBoardPort(const QString& interfaceName) = 0;
};

// The registry search on Windows, the system's serial port list elsewhere.
std::unique_ptr<IPortFinder> CreatePlatformPortFinder();
