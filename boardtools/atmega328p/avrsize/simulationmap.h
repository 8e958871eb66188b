#pragma once

#include <string>

class CElfFile;

// The simulation map of a linked layout: the panel compiler's cells file (one line a
// map entry, "CELL ITEM SYMBOL OFFSET BYTES", after a heading naming the layout) with
// every symbol resolved to the chip's RAM address the simulator reads.
class CSimulationMap
{
  public:
    // Writes the map file, or leaves none and answers why in one line.
    static bool Write(const CElfFile& elf, const std::string& cellsPath, const std::string& mapPath,
                      std::string& message);
};
