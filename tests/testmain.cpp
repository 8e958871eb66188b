#include "stringtable.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv)
{
    // External programs are run and watched through the event loop.
    QCoreApplication app(argc, argv);
    // Expected texts in the tests are the English ones.
    CStringTable::SetLanguage(ELanguage::English);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
