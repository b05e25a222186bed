#include <gtest/gtest.h>
#include "zil.h"
TEST(Smoke, Builds) { SUCCEED(); }
