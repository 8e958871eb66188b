#include "stringtable.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    // Widgets are driven by synthetic events; no display is needed unless one is asked for.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // Expected texts in the tests are the English ones.
    CStringTable::SetLanguage(ELanguage::English);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
