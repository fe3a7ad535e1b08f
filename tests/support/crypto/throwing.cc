// A library that throws what is no exception of the standard's.
extern "C" int CRYPTO_set_mem_functions(void* allocate, void* reallocate, void* release);
extern "C" int CRYPTO_set_mem_functions(void*, void*, void*) { throw 1; }
