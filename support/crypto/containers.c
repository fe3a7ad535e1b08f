/* Stacks, hash tables and the datagram queue. */
#include <stdlib.h>
#include <string.h>

#include "openssl_1_0.h"

OPENSSL_STACK* sk_dup(OPENSSL_STACK* stack) { return OPENSSL_sk_dup(stack); }
OPENSSL_STACK* sk_new(OPENSSL_sk_compfunc compare) { return OPENSSL_sk_new(compare); }
OPENSSL_STACK* sk_new_null(void) { return OPENSSL_sk_new_null(); }
OPENSSL_sk_compfunc sk_set_cmp_func(OPENSSL_STACK* stack, OPENSSL_sk_compfunc compare) {
    return OPENSSL_sk_set_cmp_func(stack, compare);
}
int sk_find(OPENSSL_STACK* stack, void* data) { return OPENSSL_sk_find(stack, data); }
int sk_insert(OPENSSL_STACK* stack, void* data, int where) { return OPENSSL_sk_insert(stack, data, where); }
int sk_num(const OPENSSL_STACK* stack) { return OPENSSL_sk_num(stack); }
int sk_push(OPENSSL_STACK* stack, void* data) { return OPENSSL_sk_push(stack, data); }
void sk_free(OPENSSL_STACK* stack) { OPENSSL_sk_free(stack); }
void sk_pop_free(OPENSSL_STACK* stack, void (*release)(void*)) { OPENSSL_sk_pop_free(stack, release); }
void sk_sort(OPENSSL_STACK* stack) { OPENSSL_sk_sort(stack); }
void sk_zero(OPENSSL_STACK* stack) { OPENSSL_sk_zero(stack); }
void* sk_delete(OPENSSL_STACK* stack, int where) { return OPENSSL_sk_delete(stack, where); }
void* sk_pop(OPENSSL_STACK* stack) { return OPENSSL_sk_pop(stack); }
void* sk_set(OPENSSL_STACK* stack, int where, void* data) { return OPENSSL_sk_set(stack, where, data); }
void* sk_value(const OPENSSL_STACK* stack, int where) { return OPENSSL_sk_value(stack, where); }

OPENSSL_LHASH* lh_new(OPENSSL_LH_HASHFUNC hash, OPENSSL_LH_COMPFUNC compare) { return OPENSSL_LH_new(hash, compare); }
unsigned long lh_num_items(const OPENSSL_LHASH* table) { return table == NULL ? 0 : OPENSSL_LH_num_items(table); }
unsigned long lh_strhash(const char* text) { return OPENSSL_LH_strhash(text); }
void lh_doall(OPENSSL_LHASH* table, OPENSSL_LH_DOALL_FUNC visit) { OPENSSL_LH_doall(table, visit); }
void lh_doall_arg(OPENSSL_LHASH* table, OPENSSL_LH_DOALL_FUNCARG visit, void* argument) {
    OPENSSL_LH_doall_arg(table, visit, argument);
}
void lh_free(OPENSSL_LHASH* table) { OPENSSL_LH_free(table); }
void* lh_delete(OPENSSL_LHASH* table, const void* data) { return OPENSSL_LH_delete(table, data); }
void* lh_insert(OPENSSL_LHASH* table, void* data) { return OPENSSL_LH_insert(table, data); }
void* lh_retrieve(OPENSSL_LHASH* table, const void* data) { return OPENSSL_LH_retrieve(table, data); }

/* The queue is OpenSSL 3's own no more to the outside, so this one is ours: a list in the order of its priorities, in
 * which each priority stands once. */
struct _pqueue {
    pitem* items;
};

pqueue pqueue_new(void) { return calloc(1, sizeof(struct _pqueue)); }
void pqueue_free(pqueue queue) { free(queue); }

pitem* pitem_new(unsigned char* priority, void* data) {
    pitem* item = malloc(sizeof *item);
    if (item != NULL) {
        memcpy(item->priority, priority, sizeof item->priority);
        item->data = data;
        item->next = NULL;
    }
    return item;
}
void pitem_free(pitem* item) { free(item); }

pitem* pqueue_insert(pqueue queue, pitem* item) {
    pitem** place = &queue->items;
    int order = -1;
    while (*place != NULL && (order = memcmp((*place)->priority, item->priority, sizeof item->priority)) < 0) {
        place = &(*place)->next;
    }
    if (*place != NULL && order == 0) {
        return NULL;
    }
    item->next = *place;
    *place = item;
    return item;
}

pitem* pqueue_pop(pqueue queue) {
    pitem* first = queue->items;
    if (first != NULL) {
        queue->items = first->next;
    }
    return first;
}

int pqueue_size(pqueue queue) {
    int size = 0;
    for (const pitem* item = queue->items; item != NULL; item = item->next) {
        ++size;
    }
    return size;
}
