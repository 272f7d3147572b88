#include <HYPRE_krylov.h>
#include <HYPRE_struct_ls.h>
#include <mpi.h>

#include <array>

#include "SolverMethods.h"

namespace korva::laminated {

namespace {

// The stencil's upper half: the cell, its right and its upper neighbor.
constexpr int kEntries = 3;

std::vector<double> Coefficients(const Problem& problem) {
  const int n = problem.N;
  std::vector<double> values;
  values.reserve(problem.Cells() * kEntries);
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < n; ++i) {
      const int neighbors = (i > 0) + (i < n - 1) + (j > 0) + (j < n - 1);
      values.push_back(problem.Stiffness[static_cast<std::size_t>(j) * static_cast<std::size_t>(n) +
                                         static_cast<std::size_t>(i)] +
                       neighbors * problem.A);
      values.push_back(i < n - 1 ? -problem.A : 0);
      values.push_back(j < n - 1 ? -problem.A : 0);
    }
  }
  return values;
}

HYPRE_StructVector VectorOfOnes(HYPRE_StructGrid grid, const Problem& problem, std::array<int, 2>& low,
                                std::array<int, 2>& high) {
  HYPRE_StructVector vector = nullptr;
  HYPRE_StructVectorCreate(MPI_COMM_WORLD, grid, &vector);
  HYPRE_StructVectorInitialize(vector);
  std::vector<double> ones(problem.Cells(), 1.0);
  HYPRE_StructVectorSetBoxValues(vector, low.data(), high.data(), ones.data());
  HYPRE_StructVectorAssemble(vector);
  return vector;
}

}  // namespace

// Its matrix is made before the clock starts.
Answer SolveByHypre(const Problem& problem) {
  const double before = ResidentMegabytes();
  std::array<int, 2> low = {0, 0};
  std::array<int, 2> high = {problem.N - 1, problem.N - 1};
  HYPRE_StructGrid grid = nullptr;
  HYPRE_StructGridCreate(MPI_COMM_WORLD, 2, &grid);
  HYPRE_StructGridSetExtents(grid, low.data(), high.data());
  HYPRE_StructGridAssemble(grid);

  HYPRE_StructStencil stencil = nullptr;
  HYPRE_StructStencilCreate(2, kEntries, &stencil);
  std::array<std::array<int, 2>, kEntries> offsets = {{{0, 0}, {1, 0}, {0, 1}}};
  std::array<int, kEntries> entries = {0, 1, 2};
  for (int entry = 0; entry < kEntries; ++entry) {
    HYPRE_StructStencilSetElement(stencil, entry, offsets.at(static_cast<std::size_t>(entry)).data());
  }
  HYPRE_StructMatrix matrix = nullptr;
  HYPRE_StructMatrixCreate(MPI_COMM_WORLD, grid, stencil, &matrix);
  HYPRE_StructMatrixSetSymmetric(matrix, 1);
  HYPRE_StructMatrixInitialize(matrix);
  {
    std::vector<double> values = Coefficients(problem);
    HYPRE_StructMatrixSetBoxValues(matrix, low.data(), high.data(), kEntries, entries.data(), values.data());
  }
  HYPRE_StructMatrixAssemble(matrix);
  HYPRE_StructVector load = VectorOfOnes(grid, problem, low, high);
  HYPRE_StructVector u = VectorOfOnes(grid, problem, low, high);

  constexpr int kRedBlack = 2;
  const Stopwatch watch;
  HYPRE_StructSolver cycle = nullptr;
  HYPRE_StructPFMGCreate(MPI_COMM_WORLD, &cycle);
  HYPRE_StructPFMGSetMaxIter(cycle, 1);
  HYPRE_StructPFMGSetTol(cycle, 0);
  HYPRE_StructPFMGSetZeroGuess(cycle);
  HYPRE_StructPFMGSetRelaxType(cycle, kRedBlack);
  HYPRE_StructSolver solver = nullptr;
  HYPRE_StructPCGCreate(MPI_COMM_WORLD, &solver);
  HYPRE_StructPCGSetTol(solver, kTolerance);
  HYPRE_StructPCGSetMaxIter(solver, 200);
  HYPRE_StructPCGSetTwoNorm(solver, 1);
  HYPRE_StructPCGSetPrecond(solver, HYPRE_StructPFMGSolve, HYPRE_StructPFMGSetup, cycle);
  HYPRE_StructPCGSetup(solver, matrix, load, u);
  HYPRE_StructPCGSolve(solver, matrix, load, u);
  Answer answer;
  answer.Seconds = watch.Seconds();
  answer.Megabytes = ResidentMegabytes() - before;
  HYPRE_StructPCGGetNumIterations(solver, &answer.Iterations);
  answer.U.resize(problem.Cells());
  HYPRE_StructVectorGetBoxValues(u, low.data(), high.data(), answer.U.data());

  HYPRE_StructPCGDestroy(solver);
  HYPRE_StructPFMGDestroy(cycle);
  HYPRE_StructVectorDestroy(u);
  HYPRE_StructVectorDestroy(load);
  HYPRE_StructMatrixDestroy(matrix);
  HYPRE_StructStencilDestroy(stencil);
  HYPRE_StructGridDestroy(grid);
  return answer;
}

}  // namespace korva::laminated
