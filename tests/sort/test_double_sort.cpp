// m01cac: sorted output and the permutation property over the patterns
// that trouble quicksorts, on both sides of the insertion cutoff.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "patterns.hpp"
#include "zil.h"

using namespace sort_test;

namespace {

class DoubleSort : public ::testing::TestWithParam<std::tuple<Pattern, std::size_t, Integer>> {};

TEST_P(DoubleSort, SortsIntoOrderKeepingTheValues) {
  const auto [pattern, n, order] = GetParam();
  auto v = make(pattern, n, static_cast<unsigned>(n));
  const auto expected = sorted_copy(v, order);
  ZilError fail = quiet_record();
  m01cac(v.data(), v.size(), order, &fail);
  EXPECT_EQ(fail.code, 0);
  // Sorted and a permutation of the input at once: equal to the sorted copy.
  EXPECT_EQ(v, expected);
}

// 15 takes the insertion pass alone, 16 the first partition; the larger sizes
// need many partitions and, for organ pipes, the randomised pivots.
INSTANTIATE_TEST_SUITE_P(
    Patterns, DoubleSort,
    ::testing::Combine(::testing::ValuesIn(kPatterns),
                       ::testing::Values(std::size_t{2}, std::size_t{15}, std::size_t{16},
                                         std::size_t{17}, std::size_t{100}, std::size_t{4099},
                                         std::size_t{100000}),
                       ::testing::Values(Zil_Ascending, Zil_Descending)),
    [](const auto& info) {
      return std::string(name(std::get<0>(info.param))) + "_" +
             std::to_string(std::get<1>(info.param)) +
             (std::get<2>(info.param) == Zil_Ascending ? "_asc" : "_desc");
    });

TEST(DoubleSortEdges, EmptyAndSingleSucceedWithoutTouching) {
  ZilError fail = quiet_record();
  m01cac(nullptr, 0, Zil_Ascending, &fail);
  EXPECT_EQ(fail.code, 0);
  double one = 3.25;
  fail = quiet_record();
  m01cac(&one, 1, Zil_Descending, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(one, 3.25);
}

TEST(DoubleSortEdges, ExtremeValuesAndSignedZeros) {
  const double inf = std::numeric_limits<double>::infinity();
  const double big = std::numeric_limits<double>::max();
  const double tiny = std::numeric_limits<double>::denorm_min();
  std::vector<double> v = {big, -inf, tiny, 0.0, -big, inf, -tiny, 1.0, -1.0, 5.0, -5.0,
                           2.0, -2.0, 3.0, -3.0, 4.0, -4.0, 6.0, -6.0, 7.0};
  m01cac(v.data(), v.size(), Zil_Ascending, nullptr);
  for (std::size_t i = 1; i < v.size(); ++i) EXPECT_LE(v[i - 1], v[i]) << i;
  EXPECT_EQ(v.front(), -inf);
  EXPECT_EQ(v.back(), inf);
}

// NaN compares false with everything, so such data has no order: the sort
// must still end, stay inside the vector (the sanitizer build checks that)
// and keep every value.
TEST(DoubleSortEdges, NaNsKeepTheValuesAndStayInBounds) {
  auto numbers = [](const std::vector<double>& v, std::size_t& nans) {
    std::vector<double> out;
    nans = 0;
    for (double x : v) std::isnan(x) ? ++nans : (out.push_back(x), 0u);
    std::sort(out.begin(), out.end());
    return out;
  };
  for (std::size_t n : {16u, 17u, 1000u, 50000u}) {
    auto v = make(Pattern::Random, n, 5);
    for (std::size_t i = 0; i < n; i += 7) v[i] = std::nan("");
    std::size_t nans_before, nans_after;
    const auto before = numbers(v, nans_before);
    ZilError fail = quiet_record();
    m01cac(v.data(), n, Zil_Ascending, &fail);
    EXPECT_EQ(fail.code, 0);
    EXPECT_EQ(numbers(v, nans_after), before);
    EXPECT_EQ(nans_after, nans_before);
  }
}

TEST(DoubleSortEdges, RepeatedCallsOnEqualDataAgree) {
  // The pivot generator moves on between calls; the result may not.
  auto v = make(Pattern::OrganPipe, 20000, 3);
  auto w = v;
  m01cac(v.data(), v.size(), Zil_Ascending, nullptr);
  m01cac(w.data(), w.size(), Zil_Ascending, nullptr);
  EXPECT_EQ(v, w);
}

}  // namespace
