/**
 * \file zptcore.h
 * \brief The allocator pair of the core library that libzptgenpx imports
 * (libzptcore.so.6.1).
 */
#ifndef ZPTCORE_H
#define ZPTCORE_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * \defgroup core Core library
 * \brief The allocator pair that libzptgenpx uses for every block it
 * allocates: a DCT-IV context from zptgDCT4InitAlloc_32f() and its twin,
 * and the scratch of a blocked Walsh-Hadamard call given no buffer.
 *
 * zptgDCT4Free_32f() and its twin hand the context's block to zptFree():
 * a caller who builds a context in its own block and releases it with
 * them allocates that block with zptMalloc().
 * @{
 */

/**
 * Allocates a block.
 * \param length size in bytes
 * \return a block of at least \p length bytes, or null (also for
 * \p length <= 0)
 */
void* zptMalloc(int length);

/**
 * Releases a block from zptMalloc().
 * \param ptr the block; null is accepted and ignored
 */
void zptFree(void* ptr);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
