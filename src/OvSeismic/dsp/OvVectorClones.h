#pragma once

/// Marks plain loops that the compiler turns into vector instructions: a function so marked exists
/// once for every processor, once for those with AVX2 and once for those with AVX-512, and the
/// right one is chosen when the library is loaded. The results are the same, bit for bit.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) &&       \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// The choice is made before a sanitizer is ready.
#define OV_VECTOR_VERSIONS
#define OV_VECTOR_CLONES __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define OV_VECTOR_CLONES
#endif
