#pragma once

#include <string>

// What one writing needs, after the command line is read.
struct CWriterOptions
{
    std::string Port;
    int WaitSeconds = 0;
    // avrdude's names: the part as avrdude knows it, the programmer, the line speed.
    std::string Part = "m328p";
    std::string Programmer = "arduino";
    std::string Baud = "115200";
    std::string HexPath;
};
