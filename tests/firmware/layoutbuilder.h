#pragma once

#include <string>

// Builds a layout file into a HEX file with quillon-cli, for the firmware tests of the
// panel families. The layout is copied into a fresh temporary folder first, because the
// build writes the HEX file beside the layout; the folder is removed when the program ends.
class CLayoutBuilder
{
  public:
    struct CResult
    {
        bool Ok = false;
        std::string HexPath;
        // quillon-cli's output, or why it could not run.
        std::string Log;
    };

    static CResult Build(const std::string& layoutPath);
};

// The HEX file built from a layout, or "" with the build log on stderr.
std::string BuildLayout(const std::string& layoutPath);
