/* Stand-in for the family's core library: the allocator pair over the C
   allocator. */
#include "zptcore.h"

#include <stdlib.h>

__attribute__((visibility("default"))) void* zptMalloc(int length)
{
    if (length <= 0) return 0;
    return malloc((size_t)length);
}

__attribute__((visibility("default"))) void zptFree(void* ptr)
{
    free(ptr);
}
