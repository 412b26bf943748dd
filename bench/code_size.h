// The machine code of a kernel of the library, in bytes, read from the ELF
// symbol table of the shared object that holds it: the size of its own
// symbol plus those of the local functions it reaches by direct calls and
// jumps (a body the compiler kept out of line, and whatever that calls in
// turn). The library's full symbol table is read where it has one; a
// stripped library has only the exported symbols, and then a kernel counts
// its own symbol alone. 0 where nothing is known.
#ifndef ZPTG_BENCH_CODE_SIZE_H
#define ZPTG_BENCH_CODE_SIZE_H

namespace zptg::bench {

long code_bytes(const void* function);

// A function's address as code_bytes takes it.
template <class F>
const void* code_address(F* function)
{
    return reinterpret_cast<const void*>(function);
}

}  // namespace zptg::bench

#endif
