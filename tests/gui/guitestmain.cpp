#include "stringtable.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    // Widgets are driven by synthetic events; no display is needed unless one is asked for.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a runtime folder Qt makes one in the temporary folder and leaves it there.
    QTemporaryDir runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    QApplication app(argc, argv);
    // Expected texts in the tests are the English ones.
    CStringTable::SetLanguage(ELanguage::English);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
