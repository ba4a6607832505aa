// What the system calls: on 32-bit Windows it aligns the stack to four bytes only, while the compiler counts
// on sixteen.
#pragma once

#ifdef __i386__
#define TARROW_CALLED_BY_SYSTEM __attribute__((force_align_arg_pointer))
#else
#define TARROW_CALLED_BY_SYSTEM
#endif
