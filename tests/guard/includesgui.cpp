// Must not compile with quillon_core's include settings.
#include <QtGui/QImage>
