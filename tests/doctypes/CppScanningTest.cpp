#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningCpp, MembersOutOfLineBelongToTheClassOfTheHeader) {
    SourceTree tree;
    tree.Write("db.cc", R"~(#include "include/db.h"

namespace store {

int DB::instances = 0;

DB::~DB() {}

void DB::Open(DB::Mode mode) { int local = 0; }

static void Helper() {}

void detail::Free(int y) {}

}  // namespace store

bool store::DB::operator==(const DB& o) const { return true; }

template <class T, int N>
void store::Pool<T, N>::Clear() {}

int main() { return 0; }
)~");
    tree.Write("include/db.h", R"~(#pragma once
#define STORE_EXPORT __attribute__((visibility("default")))

namespace store {

class Slice;

// A data base.
//
// Safe for several threads.
class STORE_EXPORT DB {
public:
    DB() = default;
    DB(const DB&) = delete;
    virtual ~DB();

    /// Reads the value of a key.
    virtual bool Get(const Slice& key, std::string* value = nullptr) const = 0;
    virtual bool Get(int number) const = 0;

    DB& operator=(const DB&) = delete;
    bool operator==(const DB& other) const;

    enum class Mode : int { Read, Write };
    void Open(Mode mode);

    template <typename T>
    // Visits each.
    void Each(T visitor);

    static int instances; ///< how many there are
    static constexpr int kLimit = 7;

protected:
    using Names = std::vector<std::string>;
    struct Entry {
        int size;
    };

private:
    friend void Swap(DB& a, DB& b);
    Names names_;
};

// Holds what it can.
template <class T, int N = 3>
struct Pool : public DB, private Other<int> {
    T items[N];
    void Clear();
    struct {
        int used;
    } state;
};

template <>
struct Pool<char, 1> {
    char only;
};

namespace detail {
void Free(int x);
}

namespace {
int hidden;
}

}  // namespace store

namespace a::b {
union Word {
    int number;
};
}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Namespace store @db.cc:3-15 @include/db.h:4-68
  -Function Helper () : void @db.cc:11
  +Class DB @include/db.h:11-43 "A data base.||Safe for several threads."
    +Constructor DB() () @include/db.h:13
    +Constructor DB(const DB&) (const DB &) @include/db.h:14
    +Destructor %7EDB () @include/db.h:15 @db.cc:7
    +Method Get(const Slice&,std%3A%3Astring*) const (const Slice & key,std::string * value=nullptr) const : bool @include/db.h:18 "Reads the value of a key."
    +Method Get(int) const (int number) const : bool @include/db.h:19
    +Operator operator= (const DB &) : DB & @include/db.h:21
    +Operator operator== (const DB & other) const : bool @include/db.h:22 @db.cc:17
    +Enumeration Mode : int @include/db.h:24
      +Enumerator Read @include/db.h:24
      +Enumerator Write @include/db.h:24
    +Method Open (Mode mode) : void @include/db.h:25 @db.cc:9
    +Method Each (T visitor) : void @include/db.h:29 "Visits each."
    +Field instances : int @include/db.h:31 @db.cc:5 "how many there are"
    +Constant kLimit : int @include/db.h:32
    #Typedef Names : std::vector<std::string> @include/db.h:35
    #Struct Entry @include/db.h:36-38
      +Field size : int @include/db.h:37
    -Field names_ : Names @include/db.h:42
  +Struct Pool < DB,Other<int> @include/db.h:47-53 "Holds what it can."
    +Field items : T[] @include/db.h:48
    +Method Clear () : void @include/db.h:49 @db.cc:20
    +Field state : struct @include/db.h:50-52
      +Field used : int @include/db.h:51
  +Struct Pool<char,1> @include/db.h:56-58
    +Field only : char @include/db.h:57
  +Namespace detail @include/db.h:60-62
    +Function Free (int x) : void @include/db.h:61 @db.cc:13
  -Variable hidden : int @include/db.h:65
+Function main () : int @db.cc:22
+Macro STORE_EXPORT @include/db.h:2
+Namespace a @include/db.h:70-74
  +Namespace b @include/db.h:70-74
    +Union Word @include/db.h:71-73
      +Field number : int @include/db.h:72
)~");
}

} // namespace paperkite::test
