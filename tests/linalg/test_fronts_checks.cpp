// The failure records of the f16 fronts (code, argnum, argval, message and
// routine name) and the positions their older forms report.
#include "linalg/fronts_support.hpp"

using namespace kt;

namespace {

std::string g_routine;
void remember(const char*, Integer, const char* routine) { g_routine = routine; }

ZilError watched() {
  ZilError f = quiet();
  f.handler = remember;
  return f;
}

struct Expect {
  Integer code, argnum, argval;
  const char* message;
};
void check(const ZilError& f, const Expect& e, const std::string& what) {
  EXPECT_EQ(f.code, e.code) << what;
  EXPECT_EQ(f.argnum, e.argnum) << what;
  EXPECT_EQ(f.argval, e.argval) << what;
  EXPECT_STREQ(f.message, e.message) << what;
}

TEST(FrontChecks, GemvInCheckOrder) {
  double a[12] = {}, x[4] = {}, y[4] = {};
  auto run = [&](Integer order, Integer trans, Integer m, Integer n, const double* ap, Integer pda, Integer incx,
                 Integer incy) {
    ZilError f = watched();
    f.argnum = 77;
    f.argval = 77;
    f16pac(order, trans, m, n, 1.0, ap, pda, x, incx, 0.0, y, incy, &f);
    return f;
  };
  const char* bad_order = "ZE_BAD_PARAM:\n  On entry, parameter order had an illegal value.";
  check(run(0, 999, -1, 2, nullptr, 0, 0, 1), {ZE_BAD_PARAM, -1, 0, bad_order}, "order first");
  EXPECT_EQ(g_routine, "zil_dgemv (f16pac)");
  check(run(Zil_ColMajor, 999, -1, 2, nullptr, 0, 0, 1),
        {ZE_BAD_PARAM, -2, 999, "ZE_BAD_PARAM:\n  On entry, parameter trans had an illegal value."}, "then options");
  check(run(Zil_ColMajor, Zil_NoTrans, 2, -3, nullptr, 0, 0, 1),
        {ZE_INT, -4, -3, "ZE_INT:\n  On entry, n = -3.\n  Constraint: n >= 0."}, "then dimensions");
  check(run(Zil_ColMajor, Zil_NoTrans, 2, 2, nullptr, 0, 0, 1),
        {ZE_BAD_PARAM, -6, 0, "ZE_BAD_PARAM:\n  On entry, parameter a had an illegal value."}, "then null arrays");
  check(run(Zil_ColMajor, Zil_NoTrans, 2, 2, a, 0, 0, 1),
        {ZE_INT, -9, 0, "ZE_INT:\n  On entry, incx = 0.\n  Constraint: incx != 0."}, "then increments");
  check(run(Zil_ColMajor, Zil_NoTrans, 3, 2, a, 2, 1, 1),
        {ZE_INT, -7, 2, "ZE_INT:\n  On entry, pda = 2.\n  Constraint: pda >= MAX(1,m)."}, "column-major pda");
  check(run(Zil_RowMajor, Zil_NoTrans, 2, 3, a, 2, 1, 1),
        {ZE_INT, -7, 2, "ZE_INT:\n  On entry, pda = 2.\n  Constraint: pda >= MAX(1,n)."}, "row-major pda");
  // Zero dimensions are legal with pda at least 1, and clear argnum.
  ZilError ok = run(Zil_RowMajor, Zil_NoTrans, 0, 0, a, 1, 1, 1);
  EXPECT_EQ(ok.code, 0);
  EXPECT_EQ(ok.argnum, 0);
  EXPECT_EQ(ok.argval, 0);
  check(run(Zil_ColMajor, Zil_NoTrans, 0, 0, a, 0, 1, 1),
        {ZE_INT, -7, 0, "ZE_INT:\n  On entry, pda = 0.\n  Constraint: pda >= MAX(1,m)."}, "pda 0");
}

TEST(FrontChecks, OtherFamilies) {
  double a[64] = {}, x[8] = {};
  Complex z[64] = {}, zx[8] = {};
  ZilError f = watched();
  f16pbc(Zil_ColMajor, Zil_NoTrans, 4, 4, 1, 2, 1.0, a, 3, x, 1, 0.0, x, 1, &f);
  check(f, {ZE_INT, -9, 3, "ZE_INT:\n  On entry, pdab = 3.\n  Constraint: pdab >= kl+ku+1."}, "gbmv");
  f16pdc(Zil_RowMajor, Zil_Upper, 4, 2, 1.0, a, 2, x, 1, 0.0, x, 1, &f);
  check(f, {ZE_INT, -7, 2, "ZE_INT:\n  On entry, pdab = 2.\n  Constraint: pdab >=k+1."}, "sbmv");
  f16pjc(Zil_ColMajor, Zil_Upper, Zil_NoTrans, 0, 3, 1.0, a, 3, x, 1, &f);
  check(f, {ZE_BAD_PARAM, -4, 0, "ZE_BAD_PARAM:\n  On entry, parameter diag had an illegal value."}, "trsv diag");
  EXPECT_EQ(g_routine, "zil_dtrsv (f16pjc)");
  zil_dtrsv(Zil_ColMajor, Zil_Upper, Zil_NoTrans, Zil_UnitDiag, 3, 1.0, a, 2, x, 1, &f);
  check(f, {ZE_INT, -8, 2, "ZE_INT:\n  On entry, pdt = 2.\n  Constraint: pdt >= MAX(1,n)."}, "trsv pdt");
  f16pmc(Zil_ColMajor, 5, 2, 2, 1.0, x, 1, x, 1, 1.0, a, 2, &f);
  check(f, {ZE_BAD_PARAM, -2, 5, "ZE_BAD_PARAM:\n  On entry, parameter conj had an illegal value."}, "ger conj");
  f16yac(Zil_RowMajor, Zil_NoTrans, Zil_Trans, 2, 3, 4, 1.0, a, 3, a, 4, 0.0, a, 3, &f);
  check(f, {ZE_INT, -9, 3, "ZE_INT:\n  On entry, pda = 3.\n  Constraint: pda >= MAX(1,k)."}, "gemm pda");
  f16yac(Zil_ColMajor, Zil_NoTrans, Zil_Trans, 2, 3, 4, 1.0, a, 2, a, 2, 0.0, a, 2, &f);
  check(f, {ZE_INT, -11, 2, "ZE_INT:\n  On entry, pdb = 2.\n  Constraint: pdb >= MAX(1,n)."}, "gemm pdb");
  f16yjc(Zil_ColMajor, Zil_RightSide, Zil_Lower, Zil_NoTrans, Zil_NonUnitDiag, 5, 3, 1.0, a, 2, a, 5, &f);
  check(f, {ZE_INT, -10, 2, "ZE_INT:\n  On entry, pda = 2.\n  Constraint: pda >= MAX(1,n)."}, "trsm pda");
  EXPECT_EQ(g_routine, "zil_dtrsm (f16yjc)");
  f16zpc(Zil_ColMajor, Zil_Upper, Zil_Trans, 2, 2, 1.0, z, 2, 0.0, z, 2, &f);
  check(f, {ZE_BAD_PARAM, -3, Zil_Trans, "ZE_BAD_PARAM:\n  On entry, parameter trans had an illegal value."}, "herk Trans");
  f16zuc(Zil_ColMajor, Zil_Upper, Zil_ConjTrans, 2, 2, Complex{1, 0}, z, 2, Complex{0, 0}, z, 2, &f);
  check(f, {ZE_BAD_PARAM, -3, Zil_ConjTrans, "ZE_BAD_PARAM:\n  On entry, parameter trans had an illegal value."}, "zsyrk ConjTrans");
  f16ypc(Zil_ColMajor, Zil_Upper, Zil_ConjTrans, 2, 2, 1.0, a, 2, 0.0, a, 2, &f);
  EXPECT_EQ(f.code, 0) << "a real rank-k update reads ConjTrans as Trans";
  f16sqc(Zil_RowMajor, Zil_Lower, 3, 1.0, zx, -1, 1.0, nullptr, &f);
  check(f, {ZE_BAD_PARAM, -8, 0, "ZE_BAD_PARAM:\n  On entry, parameter ap had an illegal value."}, "hpr ap");
  f16sac(Zil_RowMajor, Zil_ConjTrans, 2, 2, Complex{1, 0}, z, 2, zx, 1, Complex{0, 0}, zx, 0, &f);
  check(f, {ZE_INT, -12, 0, "ZE_INT:\n  On entry, incy = 0.\n  Constraint: incy != 0."}, "zgemv incy");
}

TEST(FrontChecks, NullRecordStillChecks) {
  double x[2] = {1, 2};
  f16pac(Zil_ColMajor, Zil_NoTrans, -1, 1, 1.0, x, 1, x, 1, 0.0, x, 1, nullptr);  // boxes, no crash
  EXPECT_EQ(x[0], 1.0);
}

// The older forms report through f06aaz_d: a box naming the form's tag with
// the argument's position in the form's own list.
std::string older_report(void (*call)()) {
  testing::internal::CaptureStderr();
  call();
  return testing::internal::GetCapturedStderr();
}
void expect_report(const std::string& out, const char* tag, int position) {
  EXPECT_NE(out.find(std::string("Routine ") + tag + ":"), std::string::npos) << out;
  EXPECT_NE(out.find("parameter number " + std::to_string(position) + " had"), std::string::npos) << out;
}

TEST(OlderForms, ReportPositionsOfTheirOwnLists) {
  static double a[16], x[4], y[4];
  expect_report(older_report([] { f06pac(5, 2, 2, 1.0, a, 2, x, 1, 0.0, y, 1); }), "f06pac/dgemv", 1);
  expect_report(older_report([] { f06paf(NoTranspose, -1, 2, 1.0, a, 2, x, 1, 0.0, y, 1); }), "f06pac/dgemv", 2);
  expect_report(older_report([] { f06paf_f("X", 2, 2, 1.0, a, 2, x, 1, 0.0, y, 1, 1); }), "f06pac/dgemv ", 1);
  expect_report(older_report([] { f06pcf_f("U", 2, 1.0, a, 1, x, 1, 0.0, y, 1, 1); }), "f06pcc/dsymv ", 5);
  // dtpmv has no alpha: the f16 position of ap (7) is the form's 5.
  expect_report(older_report([] { f06phf(UpperTriangle, NoTranspose, UnitTriangular, 2, nullptr, x, 1); }), "f06phc/dtpmv", 5);
  // dger has neither conj nor beta.
  expect_report(older_report([] { f06pmc(2, 2, 1.0, x, 1, y, 0, a, 2); }), "f06pmc/dger", 7);
  expect_report(older_report([] { f06pmf(2, 2, 1.0, x, 1, y, 1, a, 1); }), "f06pmc/dger", 9);
  expect_report(older_report([] {
                  static Complex z[8];
                  f06snc(2, 2, Complex{1, 0}, z, 1, z, 1, nullptr, 2);
                }),
                "f06snc/zgerc", 8);
  expect_report(older_report([] { f06zrc(UpperTriangle, NoTranspose, 2, 2, Complex{1, 0}, nullptr, 2, nullptr, 2, 1.0, nullptr, 2); }),
                "f06zrc/dher2k", 6);
  expect_report(older_report([] { f06yjf_f("l", "u", "n", "q", 2, 2, 1.0, a, 2, a, 2, 1, 1, 1, 1); }), "f06yjc/dtrsm ", 4);
}

TEST(OlderForms, ComputeWithTheirConventions) {
  // f06pac is row-major; f06paf and the letter form column-major, and the
  // letters may be lower case.
  double a[6] = {1, 2, 3, 4, 5, 6}, x[3] = {1, 1, 1}, y[2] = {0, 0};
  f06pac(NoTranspose, 2, 3, 1.0, a, 3, x, 1, 0.0, y, 1);
  EXPECT_EQ(y[0], 6.0);
  EXPECT_EQ(y[1], 15.0);
  f06paf(NoTranspose, 2, 3, 1.0, a, 2, x, 1, 0.0, y, 1);
  EXPECT_EQ(y[0], 9.0);
  EXPECT_EQ(y[1], 12.0);
  f06paf_f("t", 3, 2, 1.0, a, 3, x, 1, 0.0, y, 1, 1);
  EXPECT_EQ(y[0], 6.0);
  EXPECT_EQ(y[1], 15.0);
  // dger's older form adds to a (beta 1).
  double b[4] = {1, 1, 1, 1}, u[2] = {1, 2}, v[2] = {3, 4};
  f06pmf(2, 2, 1.0, u, 1, v, 1, b, 2);
  EXPECT_EQ(b[0], 4.0);
  EXPECT_EQ(b[3], 9.0);
  // f06snc conjugates y.
  Complex c[1] = {{0, 0}}, p[1] = {{1, 0}}, q[1] = {{0, 1}};
  f06snf(1, 1, Complex{1, 0}, p, 1, q, 1, c, 1);
  EXPECT_EQ(c[0].im, -1.0);
  f06smf(1, 1, Complex{1, 0}, p, 1, q, 1, c, 1);
  EXPECT_EQ(c[0].im, 0.0);
}

}  // namespace

namespace {

TEST(InnerReport, IllegalArgumentLine) {
  testing::internal::CaptureStderr();
  f06aaf_f("DGEMV", 3);
  std::string out = testing::internal::GetCapturedStderr();
  EXPECT_NE(out.find(" ** On entry to         DGEMV parameter number  3 had an illegal value"), std::string::npos) << out;
  EXPECT_NE(out.find("INFO =     -3"), std::string::npos) << out;
  testing::internal::CaptureStderr();
  f06aaf_f("F06PAF", 2);
  out = testing::internal::GetCapturedStderr();
  EXPECT_NE(out.find("F06PAF parameter number  2"), std::string::npos) << out;
  EXPECT_EQ(out.find("INFO"), std::string::npos) << out;
}

}  // namespace
