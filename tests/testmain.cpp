#include "res/stringtable.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Expected texts in the tests are the English ones.
    CStringTable::SetLanguage(ELanguage::English);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
