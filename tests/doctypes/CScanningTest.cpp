#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningC, DeclarationAndDefinitionAreOneAndStaticsOfTwoFilesAreTwo) {
    SourceTree tree;
    tree.Write("list.c", R"~(#include "list.h"

int list_instances = 0;

static int grow(struct list *list)
{
    int local = 1;
    return local;
}

enum list_error list_add(struct list *l, int item)
{
    return grow(l) ? LIST_OK : LIST_FULL;
}

/* Visits all. */
int list_each(struct list *list, list_visitor visit, void *user)
{
    return 0;
}
)~");
    tree.Write("list.h", R"~(#ifndef LIST_H
#define LIST_H

/* How many items fit. */
#define LIST_MAX 64
#define LIST_AT(list, i) ((list)->items[i])

/** A list of numbers. */
struct list {
    int *items; /**< the numbers */
    /* how many there are */
    unsigned long count;
};

typedef struct list list;

/* A pair without a tag. */
typedef struct {
    int first;
    union {
        int number;
        float real;
    } second;
} pair_t;

/* What may go wrong. */
enum list_error {
    LIST_OK,
    LIST_FULL /* no room */
};

/* Called for each item. */
typedef int (*list_visitor)(int item, void *user);

/* How many lists there are. */
extern int list_instances;

/*
 * Adds an item.
 *   Fails when the list is full.
 */
enum list_error list_add(struct list *list, int item);

int list_each(struct list *, list_visitor visit, void *user);

static inline int list_count(const struct list *l) { return (int)l->count; }

#endif
)~");
    tree.Write("main.c", R"~(#include "list.h"

static int grow(void) { return 2; }

int main(int argc, char **argv)
{
    return grow();
}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
-Function grow(struct list*) (struct list * list) : int @list.c:5-9
+Macro LIST_MAX @list.h:5 "How many items fit."
+Macro LIST_AT (list,i) @list.h:6
+Struct list @list.h:9-13 "A list of numbers."
  +Field items : int * @list.h:10 "the numbers"
  +Field count : unsigned long @list.h:12 "how many there are"
+Typedef list[Typedef] : list @list.h:15
+Struct pair_t @list.h:18-24 "A pair without a tag."
  +Field first : int @list.h:19
  +Field second : union @list.h:20-23
    +Field number : int @list.h:21
    +Field real : float @list.h:22
+Enumeration list_error @list.h:27-30 "What may go wrong."
  +Enumerator LIST_OK @list.h:28
  +Enumerator LIST_FULL @list.h:29
+Typedef list_visitor : int (*)(int item,void * user) @list.h:33 "Called for each item."
+Variable list_instances : int @list.h:36 @list.c:3 "How many lists there are."
+Function list_add (struct list * list,int item) : list_error @list.h:42 @list.c:11-14 "Adds an item.|  Fails when the list is full."
+Function list_each (struct list *,list_visitor visit,void * user) : int @list.h:44 @list.c:17-20 "Visits all."
+Function list_count (const struct list * l) : int @list.h:46
-Function grow() (void) : int @main.c:3
+Function main (int argc,char ** argv) : int @main.c:5-8
)~");
}

} // namespace paperkite::test
