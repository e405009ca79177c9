/*
 * A ring buffer of bytes: what is put in first is taken out first.
 * Author: Ingrid Sol
 */
#ifndef RING_BUFFER_H
#define RING_BUFFER_H

#include <stddef.h>

struct ring_buffer {
    unsigned char *bytes;
    size_t size;
    size_t first;
    size_t used;
};

int ring_put(struct ring_buffer *ring, unsigned char byte);
int ring_take(struct ring_buffer *ring, unsigned char *byte);

/* The room that is left, in bytes. */
static inline size_t ring_room(const struct ring_buffer *ring)
{
    return ring->size - ring->used;
}

#endif
