#include "ring_buffer.h"

/*
 * Puts a byte behind the last one. Returns 0 where there is no room.
 * Author: Ingrid Sol
 * Date: 1999-05-02
 * Keywords: ring buffer, queue
 */
int ring_put(struct ring_buffer *ring, unsigned char byte)
{
    if (ring_room(ring) == 0)
        return 0;
    ring->bytes[(ring->first + ring->used) % ring->size] = byte;
    ring->used++;
    return 1;
}

/*
 * Takes the first byte. Returns 0 where there is none.
 * Keywords: ring buffer, queue
 */
int ring_take(struct ring_buffer *ring, unsigned char *byte)
{
    if (ring->used == 0)
        return 0;
    *byte = ring->bytes[ring->first];
    ring->first = (ring->first + 1) % ring->size;
    ring->used--;
    return 1;
}
