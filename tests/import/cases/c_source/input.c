/*
 * queue.c - a queue of jobs
 */
#include <stdlib.h>

#ifdef _WIN32
static HANDLE lock(void)
#else
static int lock(void)
#endif
{
    return 0;
}

/* Takes the oldest job. */
// NULL where there is none.
QUEUE_API struct job *WINAPI queue_take(struct queue *q, /* never NULL */
                                 int wait)
{
    if (wait) { return q->first; }
    return NULL;
}

static int (*chooser(int how))(struct job *)
{
    return how ? by_age : by_rank;
}

int old_style(a, b)
    char *a;
    int b;
{
    return b;
}

static const struct entry table[] = { { "a", 1 }, { "b", 2 } };
#if 0
int never(void) { don't }
#endif
DEFINE_JOB(cleanup) { free(job); }
int main(int argc, char **argv) { return 0; }
