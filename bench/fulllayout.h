#pragma once

#include <QString>

// A layout with every cell of both side columns and the process area occupied, tall
// panels included, as a layout file's text.
QString FullLayoutText();
