// Every argument check of the chapter: its code and its exact text, the
// first failed check winning.  Limits are probed with tiny buffers, since a
// failed check must not touch the data.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "patterns.hpp"
#include "zil.h"

using namespace sort_test;

namespace {

constexpr Integer kBadOrder = Zil_First;
constexpr Integer kBadFinal = Zil_Ascending;
constexpr size_t kTooLong = 0xFFFFFFFu + 1;

double g_buf[4];
Integer g_ranks[4] = {0, 1, 2, 3};
Integer g_index;
double g_key;

struct Row {
  const char* what;
  std::function<void(ZilError*)> call;
  Integer code;
  const char* message;  // exact text, or null when only the head is fixed
};

const char* const kBadParamOrder = "ZE_BAD_PARAM:\n  On entry, parameter order had an illegal value.";
const char* const kTooLongText =
    "ZE_INT_ARG_GT:\n  On entry, n must not be greater than 268435455: n = 268435456.";

std::vector<Row> rows() {
  const auto d = static_cast<ptrdiff_t>(sizeof(double));
  return {
      // m01cac
      {"cac null vec", [](ZilError* f) { m01cac(nullptr, 3, Zil_Ascending, f); }, ZE_BAD_PARAM,
       "ZE_BAD_PARAM:\n  On entry, parameter vec had an illegal value."},
      {"cac n limit", [](ZilError* f) { m01cac(g_buf, kTooLong, Zil_Ascending, f); }, ZE_INT_ARG_GT, kTooLongText},
      {"cac huge n", [](ZilError* f) { m01cac(g_buf, static_cast<size_t>(-1), Zil_Ascending, f); },
       ZE_INT_ARG_GT, nullptr},
      {"cac order", [](ZilError* f) { m01cac(g_buf, 4, kBadOrder, f); }, ZE_BAD_PARAM, kBadParamOrder},
      // m01csc, the generic limits
      {"csc n limit", [d](ZilError* f) { m01csc(g_buf, kTooLong, 8, d, cmp_double, Zil_Ascending, f); },
       ZE_INT_ARG_GT, kTooLongText},
      {"csc size 0", [d](ZilError* f) { m01csc(g_buf, 4, 0, d, cmp_double, Zil_Ascending, f); },
       ZE_INT_ARG_LT, "ZE_INT_ARG_LT:\n  On entry, size must not be less than 1: size = 0."},
      {"csc size limit", [](ZilError* f) { m01csc(g_buf, 16, 134217728, 134217728, cmp_double, Zil_Ascending, f); },
       ZE_INT_ARG_GT, "ZE_INT_ARG_GT:\n  On entry, size must not be greater than 134217727: size = 134217728."},
      {"csc size limit n=0", [](ZilError* f) { m01csc(g_buf, 0, 2147483648u, 2147483648, cmp_double, Zil_Ascending, f); },
       ZE_INT_ARG_GT, "ZE_INT_ARG_GT:\n  On entry, size must not be greater than 2147483647: size = 2147483648."},
      {"csc stride", [](ZilError* f) { m01csc(g_buf, 4, 8, -4, cmp_double, Zil_Ascending, f); },
       ZE_2_INT_ARG_LT,
       "ZE_2_INT_ARG_LT:\n  On entry, |stride| =  4 while size =  8.\n  These parameters must satisfy |stride| >= size."},
      {"csc compare", [d](ZilError* f) { m01csc(g_buf, 4, 8, d, nullptr, Zil_Ascending, f); }, ZE_BAD_PARAM,
       "ZE_BAD_PARAM:\n  On entry, parameter compare had an illegal value."},
      {"csc order", [d](ZilError* f) { m01csc(g_buf, 4, 8, d, cmp_double, kBadOrder, f); }, ZE_BAD_PARAM, kBadParamOrder},
      {"csc first check wins", [](ZilError* f) { m01csc(g_buf, kTooLong, 0, 0, nullptr, kBadOrder, f); },
       ZE_INT_ARG_GT, kTooLongText},
      // m01ctc shares them, and passes on a failure of the ranking under its name
      {"ctc size 0", [d](ZilError* f) { m01ctc(g_buf, 4, 0, d, cmp_double, Zil_Ascending, f); },
       ZE_INT_ARG_LT, "ZE_INT_ARG_LT:\n  On entry, size must not be less than 1: size = 0."},
      {"ctc rank stride", [](ZilError* f) { m01ctc(g_buf, 1000, 1, 2147484, cmp_double, Zil_Ascending, f); },
       ZE_INT_ARG_GT,
       "ZE_INT_ARG_GT:\n  On entry, |stride| must not be greater than p (p = 2147483): |stride| = 2147484."},
      // m01dsc words its stride limit with p
      {"dsc stride 0", [](ZilError* f) { m01dsc(g_buf, 4, 0, cmp_double, Zil_Ascending, g_ranks, f); },
       ZE_INT_ARG_LT, "ZE_INT_ARG_LT:\n  On entry, |stride| must not be less than 1: |stride| = 0."},
      {"dsc stride p", [](ZilError* f) { m01dsc(g_buf, 1000, -2147484, cmp_double, Zil_Ascending, g_ranks, f); },
       ZE_INT_ARG_GT,
       "ZE_INT_ARG_GT:\n  On entry, |stride| must not be greater than p (p = 2147483): |stride| = 2147484."},
      {"dsc n limit", [d](ZilError* f) { m01dsc(g_buf, kTooLong, d, cmp_double, Zil_Ascending, g_ranks, f); },
       ZE_INT_ARG_GT, kTooLongText},
      {"dsc rank", [d](ZilError* f) { m01dsc(g_buf, 4, d, cmp_double, Zil_Ascending, nullptr, f); },
       ZE_BAD_PARAM, "ZE_BAD_PARAM:\n  On entry, parameter rank had an illegal value."},
      // m01esc and m01zac
      {"esc stride", [](ZilError* f) { m01esc(g_buf, 4, 8, 7, g_ranks, f); }, ZE_2_INT_ARG_LT,
       "ZE_2_INT_ARG_LT:\n  On entry, |stride| =  7 while size =  8.\n  These parameters must satisfy |stride| >= size."},
      {"esc indices", [d](ZilError* f) { m01esc(g_buf, 4, 8, d, nullptr, f); }, ZE_BAD_PARAM,
       "ZE_BAD_PARAM:\n  On entry, parameter indices had an illegal value."},
      {"zac n limit", [](ZilError* f) { m01zac(g_ranks, kTooLong, f); }, ZE_INT_ARG_GT, kTooLongText},
      // m01fsc
      {"fsc key", [d](ZilError* f) { m01fsc(nullptr, g_buf, 4, d, cmp_double, Zil_Ascending, Zil_First, &g_index, f); },
       ZE_BAD_PARAM, "ZE_BAD_PARAM:\n  On entry, parameter key had an illegal value."},
      {"fsc final", [d](ZilError* f) { m01fsc(&g_key, g_buf, 4, d, cmp_double, Zil_Ascending, kBadFinal, &g_index, f); },
       ZE_BAD_PARAM, "ZE_BAD_PARAM:\n  On entry, parameter final had an illegal value."},
      {"fsc index", [d](ZilError* f) { m01fsc(&g_key, g_buf, 4, d, cmp_double, Zil_Ascending, Zil_Last, nullptr, f); },
       ZE_BAD_PARAM, "ZE_BAD_PARAM:\n  On entry, parameter index had an illegal value."},
      {"fsc n limit", [d](ZilError* f) { m01fsc(&g_key, g_buf, kTooLong, d, cmp_double, Zil_Ascending, Zil_Last, &g_index, f); },
       ZE_INT_ARG_GT, kTooLongText},
      // m01cuc
      {"cuc head", [](ZilError* f) { m01cuc(nullptr, 0, cmp_double, Zil_Ascending, f); }, ZE_BAD_PARAM,
       "ZE_BAD_PARAM:\n  On entry, parameter head had an illegal value."},
      {"cuc offset", [](ZilError* f) { Pointer h = nullptr; m01cuc(&h, -1, cmp_double, Zil_Ascending, f); },
       ZE_INT_ARG_LT, "ZE_INT_ARG_LT:\n  On entry, offset must not be less than 0: offset = -1."},
      {"cuc order", [](ZilError* f) { Pointer h = nullptr; m01cuc(&h, 0, cmp_double, kBadOrder, f); },
       ZE_BAD_PARAM, kBadParamOrder},
  };
}

TEST(Failures, CodeAndExactText) {
  for (const Row& r : rows()) {
    ZilError fail = quiet_record();
    fail.errnum = 5;
    r.call(&fail);
    EXPECT_EQ(fail.code, r.code) << r.what;
    EXPECT_EQ(fail.errnum, 0) << r.what;
    if (r.message) EXPECT_STREQ(fail.message, r.message) << r.what;
  }
}

// Without a record the failure is shown and the routine returns normally.
TEST(Failures, NullRecordReturns) {
  for (const Row& r : rows()) {
    ::testing::internal::CaptureStderr();
    r.call(nullptr);
    const std::string shown = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(shown.find("ZIL Function Terminated"), std::string::npos) << r.what;
  }
}

TEST(Failures, BadRankNamesItsArray) {
  Integer rank[3] = {0, 0, 1};
  ZilError fail = quiet_record();
  m01zac(rank, 3, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_RANK);
  EXPECT_STREQ(fail.message, "ZE_BAD_RANK:\n  The array rank does not hold a valid set of ranks or indices.");
  double v[3] = {1, 2, 3};
  fail = quiet_record();
  m01esc(v, 3, 8, 8, rank, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_RANK);
  EXPECT_STREQ(fail.message, "ZE_BAD_RANK:\n  The array indices does not hold a valid set of ranks or indices.");
}

// The handler sees every end, success too, under the routine's own name.
std::vector<std::string> g_seen;
void remember(const char*, Integer code, const char* routine) {
  g_seen.push_back(std::string(routine) + ":" + std::to_string(code));
}

TEST(Failures, HandlerSeesSuccessAndThePassedOnFailure) {
  g_seen.clear();
  ZilError fail{};
  fail.handler = remember;
  double v[3] = {3, 1, 2};
  m01ctc(v, 3, 8, 8, cmp_double, Zil_Ascending, &fail);
  m01ctc(g_buf, 1000, 1, 2147484, cmp_double, Zil_Ascending, &fail);
  EXPECT_EQ(g_seen, (std::vector<std::string>{"m01ctc:0", "m01ctc:13"}));
}

// A chain whose last link points back into it.
struct Node {
  Integer key;
  Node* next;
};

Integer cmp_node(const void* a, const void* b) {
  return cmp_int(&static_cast<const Node*>(a)->key, &static_cast<const Node*>(b)->key);
}

TEST(ChainSort, ALoopIsReportedAndTheListLeftAlone) {
  for (std::size_t loop_to : {0u, 3u, 9u}) {
    std::vector<Node> nodes(10);
    for (std::size_t i = 0; i < nodes.size(); ++i) nodes[i].key = static_cast<Integer>(10 - i);
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) nodes[i].next = &nodes[i + 1];
    nodes.back().next = &nodes[loop_to];
    Pointer head = &nodes[0];
    ZilError fail = quiet_record();
    m01cuc(&head, offsetof(Node, next), cmp_node, Zil_Ascending, &fail);
    EXPECT_EQ(fail.code, ZE_CH_LOOP);
    EXPECT_STREQ(fail.message, "ZE_CH_LOOP:\n  A loop was found in the chain of links.");
    EXPECT_EQ(head, &nodes[0]);
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) EXPECT_EQ(nodes[i].next, &nodes[i + 1]);
  }
}

}  // namespace
