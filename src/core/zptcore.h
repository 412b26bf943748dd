/* The allocator pair of the core library that libzptgenpx imports. */
#ifndef ZPTCORE_H
#define ZPTCORE_H

#ifdef __cplusplus
extern "C" {
#endif

/* Returns a block of at least `length` bytes, or null (also for length <= 0). */
void* zptMalloc(int length);
/* Releases a block from zptMalloc; null is accepted and ignored. */
void zptFree(void* ptr);

#ifdef __cplusplus
}
#endif

#endif
