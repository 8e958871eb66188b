#pragma once

#include <QString>

#include <memory>

class CPanelGrid;
class QCoreApplication;

// quillon-cli render: the layout's drawing as a PNG picture, or as a printed PDF page.
class CRenderCommand
{
  public:
    // Drawing needs a QGuiApplication. Without a display (no X11 or Wayland) it runs on the
    // offscreen platform, unless QT_QPA_PLATFORM already names one.
    static std::unique_ptr<QCoreApplication> CreateApplication(int& argc, char** argv);

    // Parses a --scale value: a device pixel ratio from 1 to 8; 0 when it is none.
    static double ParseScale(const QString& text);

    // OUT ending in ".pdf" gets the printed page, anything else the screen drawing as PNG at
    // the given device pixel ratio. False, with the reason in error, when it cannot be written.
    static bool Render(const CPanelGrid& grid, const QString& out, double scale, QString& error);
};
