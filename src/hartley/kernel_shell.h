// The Hartley kernels read and write plain real arrays, as the real DFT
// kernels do: the same element access.
#ifndef ZPTG_HARTLEY_KERNEL_SHELL_H
#define ZPTG_HARTLEY_KERNEL_SHELL_H

#include "dft_real/kernel_shell.h"

namespace zptg::hartley {

using dft_real::Load;
using dft_real::Store;

}  // namespace zptg::hartley

#endif
