#include "Kernels.h"

namespace korva::laminated {

extern const Kernels PortableKernels;
#ifdef KORVA_X86_KERNELS
extern const Kernels Avx2Kernels;
extern const Kernels Avx512Kernels;
#endif

std::size_t KernelChoices(KernelChoice (&choices)[3]) {
  std::size_t count = 0;
  choices[count++] = {"portable", &PortableKernels};
#ifdef KORVA_X86_KERNELS
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx2") != 0) {
    choices[count++] = {"avx2", &Avx2Kernels};
  }
  if (__builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512vl") != 0 &&
      __builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512bw") != 0) {
    choices[count++] = {"avx512", &Avx512Kernels};
  }
#endif
  return count;
}

const Kernels& KernelsOfThisProcessor() {
  static const Kernels& chosen = []() -> const Kernels& {
    KernelChoice choices[3];
    return *choices[KernelChoices(choices) - 1].Table;
  }();
  return chosen;
}

}  // namespace korva::laminated
