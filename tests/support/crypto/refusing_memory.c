/* A library that will not have its memory functions set. */
int CRYPTO_set_mem_functions(void*, void*, void*);
int CRYPTO_set_mem_functions(void* allocate, void* reallocate, void* release) {
    (void)allocate;
    (void)reallocate;
    (void)release;
    return 0;
}
