// The lookups between the names and the numbers of the two public
// vocabularies: the enumeration constants (x04mac, x04mcc) and the failure
// codes (x04mbc).
#include "zil_enums.h"
#include "zil_errors.h"

#include <cstddef>
#include <cstring>
#include <iterator>
#include <string_view>

namespace zil {
namespace {

// The one answer of a failed name lookup; it lies outside both vocabularies.
constexpr Integer kNameNotFound = -5438;
constexpr char kUnknownValue[] = "unknown_enum_value";

struct EnumRow {
  std::string_view name;
  Integer value;
};

// Every constant once, in the documented row order: the block of the older
// kernels' option words first, then 101 upward, then 1027 upward.  Both
// lookups walk the rows in this order and stop at the first match.
#define E(constant) EnumRow{#constant, constant}
constexpr EnumRow kEnumRows[] = {
    // 1001
    E(NoTranspose), E(Transpose), E(ConjugateTranspose), E(UpperTriangle),
    E(LowerTriangle), E(UnitTriangular), E(NotUnitTriangular), E(LeftSide), E(RightSide),
    E(BottomPivot), E(TopPivot), E(VariablePivot), E(FixedPivot), E(ForwardSequence),
    E(BackwardSequence), E(OneNorm), E(FrobeniusNorm), E(MaxAbsValue), E(InfinityNorm),
    E(General), E(UpperTriangular), E(LowerTriangular), E(SymmetricUpper),
    E(SymmetricLower), E(HermitianUpper), E(HermitianLower),
    // 101
    E(Zil_RowMajor), E(Zil_ColMajor),
    // 111
    E(Zil_NoTrans), E(Zil_Trans), E(Zil_ConjTrans),
    // 121
    E(Zil_Upper), E(Zil_Lower),
    // 130
    E(Zil_NonRefDiag), E(Zil_NonUnitDiag), E(Zil_UnitDiag),
    // 141
    E(Zil_LeftSide), E(Zil_RightSide), E(Zil_BothSides),
    // 151
    E(Zil_Base), E(Zil_T), E(Zil_Rnd), E(Zil_Ieee), E(Zil_Emin), E(Zil_Emax), E(Zil_Eps),
    E(Zil_Prec), E(Zil_Underflow), E(Zil_Overflow), E(Zil_Sfmin),
    // 171
    E(Zil_OneNorm), E(Zil_RealOneNorm), E(Zil_TwoNorm), E(Zil_FrobeniusNorm),
    E(Zil_InfNorm), E(Zil_RealInfNorm), E(Zil_MaxNorm), E(Zil_RealMaxNorm),
    // 181
    E(Zil_IncreasingOrder), E(Zil_DecreasingOrder),
    // 191
    E(Zil_Conj), E(Zil_NoConj),
    // 201
    E(Zil_JrotInner), E(Zil_JrotOuter), E(Zil_JrotSorted),
    // 1027
    E(Zil_InitQ), E(Zil_NotQ), E(Zil_AccumulateQ), E(Zil_UpdateSchur), E(Zil_InitZ),
    E(Zil_NotZ), E(Zil_AccumulateZ), E(Zil_UpdateZ), E(Zil_HSEQRSource), E(Zil_NotKnown),
    E(Zil_ComputeAll), E(Zil_BackTransform), E(Zil_ComputeSelected), E(Zil_NoVec),
    E(Zil_UserVec), E(Zil_Plus), E(Zil_Minus), E(Zil_DoBoth), E(Zil_EigVals),
    E(Zil_DoNothing), E(Zil_Permute), E(Zil_Schur), E(Zil_Scale), E(Zil_Subspace),
    E(Zil_EigVecs), E(Zil_ByBlock), E(Zil_Entire), E(Zil_AllValues), E(Zil_Interval),
    E(Zil_Indices), E(Zil_FormBoth), E(Zil_DoNotForm), E(Zil_FormP), E(Zil_ApplyP),
    E(Zil_FormQ), E(Zil_ApplyQ), E(Zil_UpdateQ), E(Zil_FormX), E(Zil_Compute_1),
    E(Zil_Compute_2), E(Zil_Compute_3), E(Zil_Convolution), E(Zil_Correlation),
    E(Zil_ForwardTransform), E(Zil_BackwardTransform), E(Zil_Alg), E(Zil_Alg_loga),
    E(Zil_Alg_logb), E(Zil_Alg_loga_logb), E(Zil_UpperSemiInfinite),
    E(Zil_LowerSemiInfinite), E(Zil_Infinite), E(Zil_Cosine), E(Zil_Sine),
    E(Zil_Legendre), E(Zil_Rational), E(Zil_Laguerre), E(Zil_Hermite),
    E(Zil_OneIteration), E(Zil_ManyIterations), E(Zil_Relative), E(Zil_Absolute),
    E(Zil_Mixed), E(Zil_UserInitMesh), E(Zil_DefInitMesh), E(Zil_RK_range),
    E(Zil_RK_onestep), E(Zil_RK_2_3), E(Zil_RK_4_5), E(Zil_RK_7_8),
    E(Zil_ErrorAssess_off), E(Zil_ErrorAssess_on), E(Zil_Sol), E(Zil_Der), E(Zil_SolDer),
    E(Zil_RC), E(Zil_Shep), E(Zil_LeftDerivs), E(Zil_RightDerivs), E(Zil_StartNotSet),
    E(Zil_Cold), E(Zil_Warm), E(Zil_Hot), E(Zil_NewStart), E(Zil_ReStart),
    E(Zil_Continue), E(Zil_EuropeanCall), E(Zil_AmericanCall), E(Zil_EuropeanPut),
    E(Zil_AmericanPut), E(Zil_UniformMesh), E(Zil_CustomMesh), E(Zil_LinAlgFull),
    E(Zil_LinAlgBand), E(Zil_LinAlgSparse), E(Zil_OsherOriginal), E(Zil_OsherPhysical),
    E(Zil_PrintNotSet), E(Zil_NoPrint), E(Zil_Soln_Root), E(Zil_Soln), E(Zil_Iter),
    E(Zil_Iter_Long), E(Zil_Soln_Root_Iter), E(Zil_Soln_Iter), E(Zil_Soln_Iter_Long),
    E(Zil_Soln_Iter_Const), E(Zil_Soln_Iter_Diag), E(Zil_Soln_Iter_Full),
    E(Zil_ChkNotSet), E(Zil_NoCheck), E(Zil_SimpleCheck), E(Zil_CheckObj),
    E(Zil_CheckCon), E(Zil_CheckObjCon), E(Zil_XSimpleCheck), E(Zil_XCheckObj),
    E(Zil_XCheckCon), E(Zil_XCheckObjCon), E(Zil_D_NotSet), E(Zil_D_NoPrint),
    E(Zil_D_Print), E(Zil_D_Sum), E(Zil_D_Full), E(Zil_D_Dbg), E(Zil_ObjCheck),
    E(Zil_ConCheck), E(Zil_DiffInt), E(Zil_DWant_NotSet), E(Zil_Grad_HessDiag),
    E(Zil_HessFull), E(Zil_Grad_HessFull), E(Zil_DInfo_NotSet), E(Zil_Deriv_OK),
    E(Zil_Fun_Constant), E(Zil_Fun_LinearOdd), E(Zil_2ndDeriv_Large),
    E(Zil_1stDeriv_Small), E(Zil_DerivNotSet), E(Zil_SomeG_SomeJ), E(Zil_AllG_SomeJ),
    E(Zil_SomeG_AllJ), E(Zil_AllG_AllJ), E(Zil_Deriv), E(Zil_NoDeriv), E(Zil_Function),
    E(Zil_LinFunNotSet), E(Zil_Lin_Deriv), E(Zil_Lin_NoDeriv), E(Zil_InitNotSet),
    E(Zil_Init_None), E(Zil_Init_F_G_H), E(Zil_Init_All), E(Zil_Init_H_S),
    E(Zil_BoundNotSet), E(Zil_Bounds), E(Zil_BoundsZero), E(Zil_BoundsEqual),
    E(Zil_NoBounds), E(Zil_NoBounds_One_Call), E(Zil_ProbTypeNotSet), E(Zil_FP),
    E(Zil_LP), E(Zil_QP1), E(Zil_QP2), E(Zil_QP3), E(Zil_QP4), E(Zil_LS1), E(Zil_LS2),
    E(Zil_LS3), E(Zil_LS4), E(Zil_SparseFP), E(Zil_SparseLP), E(Zil_SparseQP),
    E(Zil_SparseFPE), E(Zil_SparseFPL), E(Zil_SparseFPS), E(Zil_SparseQPP),
    E(Zil_SparseQPS), E(Zil_EndStateNotSet), E(Zil_Feasible), E(Zil_Optimal),
    E(Zil_Deadpoint), E(Zil_Weakmin), E(Zil_Unbounded), E(Zil_Infeasible),
    E(Zil_Too_Many_Iter), E(Zil_Hess_Too_Big), E(Zil_Cycling), E(Zil_Not_Converged),
    E(Zil_Not_Kuhn_Tucker), E(Zil_Deriv_Error), E(Zil_Hess_Indefinite),
    E(Zil_Basis_Ill_Cond), E(Zil_Basis_Singular), E(Zil_Out_Of_Workspace),
    E(Zil_MIP_Best_ISol), E(Zil_MIP_Stop_First_ISol), E(Zil_MIP_No_ISol),
    E(Zil_MIP_Root_Unbounded), E(Zil_MIP_Root_Infeasible), E(Zil_MIP_Root_Max_Itn),
    E(Zil_MIP_Root_Big_Hess), E(Zil_MIP_Max_Itn_ISol), E(Zil_MIP_Max_Nodes_ISol),
    E(Zil_MIP_Big_Hess_ISol), E(Zil_MIP_Max_Depth_ISol), E(Zil_MIP_Big_Hess_No_ISol),
    E(Zil_MIP_Max_Itn_No_ISol), E(Zil_MIP_Max_Nodes_No_ISol),
    E(Zil_MIP_Max_Depth_No_ISol), E(Zil_MIP_User_Stop), E(Zil_DegenInit),
    E(Zil_DegenOptimal), E(Zil_DegenEndCycle), E(Zil_StatesInternal),
    E(Zil_StatesExternal), E(Zil_LU_TypeB), E(Zil_LU_TypeBS), E(Zil_LU_TypeBT),
    E(Zil_LU_SolveL), E(Zil_LU_SolveB), E(Zil_LU_SolveBt), E(Zil_BasisFactB),
    E(Zil_BasisFactBS), E(Zil_CrashNotSet), E(Zil_NoCrash), E(Zil_CrashOnce),
    E(Zil_CrashTwice), E(Zil_CrashThreeTimes), E(Zil_ScaleNotSet), E(Zil_NoScale),
    E(Zil_RowColScale), E(Zil_ExtraScale), E(Zil_ElementsIn), E(Zil_ElementsSeparate),
    E(Zil_Supplied), E(Zil_NotSupplied), E(Zil_Select_Modulus), E(Zil_Select_RealPart),
    E(Zil_LDLTX), E(Zil_LDX), E(Zil_DLTX), E(Zil_LLTX), E(Zil_LX), E(Zil_LTX),
    E(Zil_SparseNsym_RGMRES), E(Zil_SparseNsym_CGS), E(Zil_SparseNsym_BiCGSTAB),
    E(Zil_SparseNsym_CG), E(Zil_SparseNsym_SYMMLQ), E(Zil_SparseNsym_TFQMR),
    E(Zil_SparseNsym_ModFact), E(Zil_SparseNsym_UnModFact), E(Zil_SparseNsym_NoPiv),
    E(Zil_SparseNsym_UserPiv), E(Zil_SparseNsym_PartialPiv),
    E(Zil_SparseNsym_CompletePiv), E(Zil_SparseNsym_MarkowitzPiv),
    E(Zil_SparseNsym_RemoveZeros), E(Zil_SparseNsym_KeepZeros),
    E(Zil_SparseNsym_FailZeros), E(Zil_SparseNsym_RemoveDups), E(Zil_SparseNsym_SumDups),
    E(Zil_SparseNsym_FailDups), E(Zil_SparseNsym_StoreCS), E(Zil_SparseNsym_StoreSCS),
    E(Zil_SparseSym_CG), E(Zil_SparseSym_Lanczos), E(Zil_SparseSym_TFQMR),
    E(Zil_SparseSym_ModFact), E(Zil_SparseSym_UnModFact), E(Zil_SparseNsym_NoPrec),
    E(Zil_SparseNsym_SSORPrec), E(Zil_SparseNsym_JacPrec), E(Zil_SparseNsym_Prec),
    E(Zil_SparseNsym_Weighted), E(Zil_SparseNsym_UnWeighted), E(Zil_SparseSym_Weighted),
    E(Zil_SparseSym_UnWeighted), E(Zil_SparseSym_Bisect), E(Zil_SparseSym_NoBisect),
    E(Zil_SparseSym_OneNorm), E(Zil_SparseSym_TwoNorm), E(Zil_SparseSym_InfNorm),
    E(Zil_SparseSym_TermLanczos), E(Zil_SparseSym_TermLanczosCG),
    E(Zil_SparseNsym_NoCheck), E(Zil_SparseNsym_Check), E(Zil_SparseSym_NoCheck),
    E(Zil_SparseSym_Check), E(Zil_SparseSym_NoPiv), E(Zil_SparseSym_MarkPiv),
    E(Zil_SparseSym_UserPiv), E(Zil_SparseSym_Prec), E(Zil_SparseSym_NoPrec),
    E(Zil_SparseSym_SSORPrec), E(Zil_SparseSym_JacPrec), E(Zil_SparseSym_SumDups),
    E(Zil_SparseSym_RemoveDups), E(Zil_SparseSym_KeepZeros), E(Zil_SparseSym_RemoveZeros),
    E(Zil_LowerTail), E(Zil_UpperTail), E(Zil_TwoTailSignif), E(Zil_TwoTailConfid),
    E(Zil_TwoTail), E(Zil_Central), E(Zil_RankScores), E(Zil_NormalScores),
    E(Zil_BlomScores), E(Zil_TukeyScores), E(Zil_WaerdenScores), E(Zil_SavageScores),
    E(Zil_AverageTies), E(Zil_LowestTies), E(Zil_HighestTies), E(Zil_RandomTies),
    E(Zil_IgnoreTies), E(Zil_ClassBoundaryUser), E(Zil_ClassBoundaryComp), E(Zil_LCCPan),
    E(Zil_LCCImhof), E(Zil_LCCDefault), E(Zil_CumulantsOnly), E(Zil_ComputeMoments),
    E(Zil_RatioMoments), E(Zil_LinearRatio), E(Zil_QuadRatio), E(Zil_WeightedEstimate),
    E(Zil_UnweightedEstimate), E(Zil_MeanInclude), E(Zil_MeanZero), E(Zil_ObservAdd),
    E(Zil_ObservDel), E(Zil_AboutMean), E(Zil_AboutZero), E(Zil_FirstCall), E(Zil_Update),
    E(Zil_Expo), E(Zil_Iden), E(Zil_Log), E(Zil_Sqrt), E(Zil_Reci), E(Zil_Logistic),
    E(Zil_Probit), E(Zil_Compl), E(Zil_RegNotSet), E(Zil_HuberReg), E(Zil_MallowsReg),
    E(Zil_SchweppeReg), E(Zil_PsiNotSet), E(Zil_Lsq), E(Zil_HuberFun), E(Zil_HampelFun),
    E(Zil_AndrewFun), E(Zil_TukeyFun), E(Zil_SigmaNotSet), E(Zil_SigmaRes),
    E(Zil_SigmaConst), E(Zil_SigmaChi), E(Zil_CovNotSet), E(Zil_CovMatAve),
    E(Zil_CovMatObs), E(Zil_SigmaSimul), E(Zil_SigmaBypas), E(Zil_MatCorrelation),
    E(Zil_MatStandardised), E(Zil_MatSumSq), E(Zil_MatVarCovar), E(Zil_ScoresStand),
    E(Zil_ScoresNotStand), E(Zil_ScoresUnitVar), E(Zil_ScoresEigenval), E(Zil_NoWeights),
    E(Zil_Weights), E(Zil_Weightsfreq), E(Zil_Weightsvar), E(Zil_RoLoadStand),
    E(Zil_RoLoadNotStand), E(Zil_NoTransNorm), E(Zil_Orig), E(Zil_OrigCentroid),
    E(Zil_Norm), E(Zil_OrigNorm), E(Zil_OrigNormCentroid), E(Zil_LsqScale),
    E(Zil_NotLsqScale), E(Zil_DataCorr), E(Zil_DataCovar), E(Zil_MatCorr_Covar),
    E(Zil_FacScoreRegsn), E(Zil_FacScoreBart), E(Zil_FacRotate), E(Zil_FacNoRotate),
    E(Zil_EqualCovar), E(Zil_NotEqualCovar), E(Zil_SamplePoints), E(Zil_GroupMeans),
    E(Zil_DiscrimEstimate), E(Zil_DiscrimPredict), E(Zil_EqualPrior),
    E(Zil_GroupSizePrior), E(Zil_UserPrior), E(Zil_MatUp), E(Zil_NoMatUp), E(Zil_DistAbs),
    E(Zil_DistEuclid), E(Zil_DistSquared), E(Zil_VarScaleStd), E(Zil_VarScaleRange),
    E(Zil_VarScaleUser), E(Zil_NoVarScale), E(Zil_SingleLink), E(Zil_CompleteLink),
    E(Zil_GroupAverage), E(Zil_Centroid), E(Zil_Median), E(Zil_MinVariance),
    E(Zil_DendNorth), E(Zil_DendSouth), E(Zil_DendEast), E(Zil_DendWest),
    E(Zil_AllEigVals), E(Zil_LargeEigVals), E(Zil_Stress), E(Zil_SStress),
    E(Zil_NoBlocks), E(Zil_SerialBlocks), E(Zil_ParallelBlocks), E(Zil_Poly),
    E(Zil_Helmert), E(Zil_FirstLevel), E(Zil_LastLevel), E(Zil_AllLevels),
    E(Zil_TukeyInterval), E(Zil_BonferroniInterval), E(Zil_DunnInterval),
    E(Zil_FisherInterval), E(Zil_ScheffeInterval), E(Zil_CompProbExact),
    E(Zil_CompProbApprox), E(Zil_PDF), E(Zil_CDF), E(Zil_InitializeI), E(Zil_InputA),
    E(Zil_PopVarEqual), E(Zil_PopVarNotEqual), E(Zil_CE_EM), E(Zil_CE_NR),
    E(Zil_Censored), E(Zil_NoCensored), E(Zil_RCI_Exact), E(Zil_RCI_Approx),
    E(Zil_NormalDistn), E(Zil_Tdistn), E(Zil_IncSignZerosY), E(Zil_IncSignZerosN),
    E(Zil_Uniform), E(Zil_Normal), E(Zil_Gamma), E(Zil_Beta), E(Zil_ChiSquare),
    E(Zil_Binomial), E(Zil_Exponential), E(Zil_Poisson), E(Zil_UserProb),
    E(Zil_LogNormal), E(Zil_StudentT), E(Zil_ParaSupplied), E(Zil_ParaEstimated),
    E(Zil_TestStatisticsDAbs), E(Zil_TestStatisticsDPos), E(Zil_TestStatisticsDNeg),
    E(Zil_SingleCallR), E(Zil_FirstCallR), E(Zil_IntermediateCallR), E(Zil_LastCallR),
    E(Zil_4253H), E(Zil_3RSSH), E(Zil_SmoothFitPartial), E(Zil_SmoothFitQuick),
    E(Zil_SmoothFitFull), E(Zil_SmoothParamCV), E(Zil_SmoothParamGCV),
    E(Zil_SmoothParamDF), E(Zil_UseFFT_Y), E(Zil_UseFFT_N), E(Zil_TableStatsNObs),
    E(Zil_TableStatsTotal), E(Zil_TableStatsAv), E(Zil_TableStatsMedian),
    E(Zil_TableStatsVar), E(Zil_TableStatsLarge), E(Zil_TableStatsSmall),
    E(Zil_TableUpdateU), E(Zil_TableUpdateI), E(Zil_TabulateVarDiscr),
    E(Zil_TabulateVarCont), E(Zil_Freq), E(Zil_NoFreq), E(Zil_UseOffset_Y),
    E(Zil_UseOffset_N), E(Zil_CriteriaNotSet), E(Zil_LeastSquares), E(Zil_Exact),
    E(Zil_Marginal), E(Zil_Rectangular), E(Zil_Bartlett), E(Zil_Tukey), E(Zil_Parzen),
    E(Zil_NoCorrection), E(Zil_Mean), E(Zil_Trend), E(Zil_Unlogged), E(Zil_Logged),
    E(Zil_UseRange), E(Zil_UseSD), E(Zil_AutoCov), E(Zil_AutoCorr), E(Zil_next_state),
    E(Zil_curr_state), E(Zil_ab_prod), E(Zil_ab_sep), E(Zil_UH_Observer),
    E(Zil_LH_Observer), E(Zil_UH_Controller), E(Zil_LH_Controller),
    E(Zil_Garch_Useht_True), E(Zil_Garch_Useht_False), E(Zil_Garch_Fcall_True),
    E(Zil_Garch_Fcall_False), E(Zil_Garch_Stationary_True), E(Zil_Garch_Stationary_False),
    E(Zil_Garch_Est_Initial_True), E(Zil_Garch_Est_Initial_False), E(Zil_OutputNotSet),
    E(Zil_NoOutput), E(Zil_MPS_Summary), E(Zil_MPS_List), E(Zil_BB_OK),
    E(Zil_BB_Alloc_Fail), E(Zil_BB_Internal_Error), E(Zil_MIP_TypeNotSet), E(Zil_MILP),
    E(Zil_MIQP1), E(Zil_MIQP2), E(Zil_MIQP3), E(Zil_MIQP4), E(Zil_NodSel_NotSet),
    E(Zil_Deep_Search), E(Zil_Broad_Search), E(Zil_MinObj_Search),
    E(Zil_DeepBroad_Search), E(Zil_DeepMinObj_Search), E(Zil_VarSel_NotSet),
    E(Zil_First_Int), E(Zil_Nearest_Half), E(Zil_Use_Priority), E(Zil_BrDir_NotSet),
    E(Zil_Branch_Left), E(Zil_Branch_Right), E(Zil_Branch_InitX), E(Zil_NS_NotSet),
    E(Zil_NS_NotSolved), E(Zil_NS_NotBranched), E(Zil_NS_Integer), E(Zil_NS_Bounded),
    E(Zil_NS_Infeasible), E(Zil_NS_Terminated), E(Zil_Ascending), E(Zil_Descending),
    E(Zil_First), E(Zil_Last), E(Zil_ScaleRes), E(Zil_UnscaleRes), E(Zil_NoLabels),
    E(Zil_IntegerLabels), E(Zil_CharacterLabels), E(Zil_GeneralMatrix),
    E(Zil_LowerMatrix), E(Zil_UpperMatrix), E(Zil_AboveForm), E(Zil_BracketForm),
    E(Zil_DirectForm), E(Zil_HashOK), E(Zil_HashTableTooBig), E(Zil_HessianNotSet),
    E(Zil_HessianFull), E(Zil_HessianLimited), E(Zil_DirectionNotSet), E(Zil_Minimize),
    E(Zil_Maximize), E(Zil_FeasiblePoint), E(Zil_QuasiRandom_Init),
    E(Zil_QuasiRandom_Cont), E(Zil_QuasiRandom_Finish), E(Zil_QuasiRandom_Sobol),
    E(Zil_QuasiRandom_Faure), E(Zil_QuasiRandom_Nied),
};
#undef E

constexpr bool values_unique() {
  for (std::size_t i = 0; i < std::size(kEnumRows); ++i) {
    for (std::size_t j = i + 1; j < std::size(kEnumRows); ++j) {
      if (kEnumRows[i].value == kEnumRows[j].value) return false;
    }
  }
  return true;
}

static_assert(std::size(kEnumRows) == 665, "the vocabulary has 665 constants");
static_assert(values_unique(), "two constants share a value");

// The name at the head of a zil_errlist entry: everything before the colon,
// or before the " (line %1ld)" of the option file entries.
std::string_view code_name(const char *entry) {
  const std::string_view text(entry);
  return text.substr(0, text.find_first_of(" :"));
}

}  // namespace
}  // namespace zil

extern "C" Integer x04mac(const char *name) {
  if (name == nullptr) return zil::kNameNotFound;
  const std::string_view wanted(name);
  for (const auto &row : zil::kEnumRows) {
    if (row.name == wanted) return row.value;
  }
  return zil::kNameNotFound;
}

extern "C" Integer x04mbc(const char *name) {
  if (name == nullptr || *name == '\0') return zil::kNameNotFound;
  const std::string_view wanted(name);
  // An unassigned code has an empty entry and so an empty name, which the
  // test above has already refused.
  for (Integer code = 0; code < ZIL_ERRLIST_SIZE; ++code) {
    if (zil::code_name(zil_errlist[code]) == wanted) return code;
  }
  return zil::kNameNotFound;
}

extern "C" char *x04mcc(Integer value, char *buffer) {
  if (buffer == nullptr) return nullptr;
  std::string_view name(zil::kUnknownValue);
  for (const auto &row : zil::kEnumRows) {
    if (row.value == value) {
      name = row.name;
      break;
    }
  }
  std::memcpy(buffer, name.data(), name.size());
  buffer[name.size()] = '\0';
  return buffer;
}
