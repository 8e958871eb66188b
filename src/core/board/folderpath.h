#pragma once

#include <QString>

// True when name, joined to a folder, names something inside that folder: a relative path
// with no ".." part. Names read from files (a palette file, a saved board) must not reach
// elsewhere; a backslash counts as a separator too, as a file made on Windows means it.
bool StaysInsideFolder(const QString& name);
