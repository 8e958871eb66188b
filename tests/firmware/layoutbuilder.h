#pragma once

#include <string>

// Builds a layout file into a HEX file with quillon-cli, for the firmware tests of the
// panel families: the HEX file's path, or "" with quillon-cli's output on stderr. The layout
// is copied into a fresh temporary folder first, because the build writes the HEX file beside
// the layout; the folder is removed when the program ends.
std::string BuildLayout(const std::string& layoutPath);
