#pragma once

#include "pictureentry.h"

#include <span>

// The pictures by family; CPanelPainter looks ids up in all of them.
namespace PictureFamilies {
std::span<const CPictureEntry> Gates();
std::span<const CPictureEntry> Wires();
std::span<const CPictureEntry> Blocks();
std::span<const CPictureEntry> SideStrips();
std::span<const CPictureEntry> TypeSymbols();
} // namespace PictureFamilies
