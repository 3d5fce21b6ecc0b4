{
    "_type" : "tag",
    "name" : "Foo",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 7,
    "kind" : "prototype",
    "access" : "public",
    "signature" : "(int a,const char * b=\",(\")",
    "scope" : "Foo",
    "scopeKind" : "class",
    "end" : 7
} {
    "_type" : "tag",
    "name" : "Foo",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 4,
    "kind" : "class",
    "inherits" : "Bar,Baz",
    "end" : 15
} {
    "_type" : "tag",
    "name" : "Kind",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 13,
    "kind" : "enum",
    "access" : "protected",
    "scope" : "Foo",
    "scopeKind" : "class",
    "end" : 13
} {
    "_type" : "tag",
    "name" : "Local",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 17,
    "kind" : "struct",
    "scope" : "a::b::g",
    "scopeKind" : "function",
    "end" : 17
} {
    "_type" : "tag",
    "name" : "M",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 18,
    "kind" : "macro",
    "signature" : "(x)",
    "end" : 18
} {
    "_type" : "tag",
    "name" : "One",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 13,
    "kind" : "enumerator",
    "access" : "public",
    "scope" : "Foo::Kind",
    "scopeKind" : "enum"
} {
    "_type" : "tag",
    "name" : "T",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 3,
    "typeref" : "meta:class",
    "kind" : "tparam",
    "access" : "private",
    "scope" : "Foo",
    "scopeKind" : "class"
} {
    "_type" : "tag",
    "name" : "Two",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 13,
    "kind" : "enumerator",
    "access" : "public",
    "scope" : "Foo::Kind",
    "scopeKind" : "enum"
} {
    "_type" : "tag",
    "name" : "Type",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 14,
    "typeref" : "typename:std::map<int,std::string>",
    "kind" : "typedef",
    "access" : "protected",
    "scope" : "Foo",
    "scopeKind" : "class"
} {
    "_type" : "tag",
    "name" : "__anon0ef53677010d",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 9,
    "typeref" : "typename:int",
    "kind" : "parameter",
    "scope" : "Foo::operator ()",
    "scopeKind" : "prototype"
} {
    "_type" : "tag",
    "name" : "__anon0ef53677020d",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 16,
    "typeref" : "typename:int",
    "kind" : "parameter",
    "scope" : "a::b::g",
    "scopeKind" : "prototype"
} {
    "_type" : "tag",
    "name" : "__anon0ef53677030d",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 16,
    "typeref" : "typename:double",
    "kind" : "parameter",
    "scope" : "a::b::g",
    "scopeKind" : "prototype"
} {
    "_type" : "tag",
    "name" : "a",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 7,
    "typeref" : "typename:int",
    "kind" : "parameter",
    "scope" : "Foo::Foo",
    "scopeKind" : "prototype"
} {
    "_type" : "tag",
    "name" : "a",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 16,
    "kind" : "namespace",
    "end" : 16
} {
    "_type" : "tag",
    "name" : "b",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 7,
    "typeref" : "typename:const char *",
    "kind" : "parameter",
    "scope" : "Foo::Foo",
    "scopeKind" : "prototype"
} {
    "_type" : "tag",
    "name" : "b",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 16,
    "kind" : "namespace",
    "scope" : "a",
    "scopeKind" : "namespace",
    "end" : 16
} {
    "_type" : "tag",
    "name" : "g",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 17,
    "typeref" : "typename:int",
    "kind" : "function",
    "signature" : "(int x)",
    "scope" : "a::b",
    "scopeKind" : "class",
    "end" : 17
} {
    "_type" : "tag",
    "name" : "g",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 16,
    "typeref" : "typename:int",
    "kind" : "prototype",
    "signature" : "(double)",
    "scope" : "a::b",
    "scopeKind" : "namespace",
    "end" : 16
} {
    "_type" : "tag",
    "name" : "g",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 16,
    "typeref" : "typename:int",
    "kind" : "prototype",
    "signature" : "(int)",
    "scope" : "a::b",
    "scopeKind" : "namespace",
    "end" : 16
} {
    "_type" : "tag",
    "name" : "h",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 16,
    "typeref" : "typename:int",
    "kind" : "variable",
    "scope" : "a::b",
    "scopeKind" : "namespace",
    "end" : 16
} {
    "_type" : "tag",
    "name" : "mSize",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 12,
    "typeref" : "typename:int",
    "kind" : "member",
    "access" : "protected",
    "scope" : "Foo",
    "scopeKind" : "class",
    "end" : 12
} {
    "_type" : "tag",
    "name" : "operator ()",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 9,
    "typeref" : "typename:T",
    "kind" : "prototype",
    "access" : "public",
    "signature" : "(int) const",
    "scope" : "Foo",
    "scopeKind" : "class",
    "end" : 9
} {
    "_type" : "tag",
    "name" : "x",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 18,
    "kind" : "macroparam",
    "scope" : "M",
    "scopeKind" : "macro"
} {
    "_type" : "tag",
    "name" : "x",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 17,
    "typeref" : "typename:int",
    "kind" : "parameter",
    "scope" : "a::b::g",
    "scopeKind" : "function"
} {
    "_type" : "tag",
    "name" : "y",
    "path" : "a.cpp",
    "language" : "C++",
    "line" : 17,
    "typeref" : "typename:int",
    "kind" : "member",
    "access" : "public",
    "scope" : "a::b::g::Local",
    "scopeKind" : "struct",
    "end" : 17
} {
    "_type" : "tag",
              "name" : "~Foo",
                       "path" : "a.cpp",
                                "language" : "C++",
                                             "line" : 8,
                                             "kind" : "prototype",
                                                      "access" : "public",
                                                                 "signature" : "()",
                                                                               "scope" : "Foo",
                                                                                         "scopeKind"
        : "class",
          "end" : 8
}
====
#include <x>
/// The class.
template <class T>
class EXPORT Foo : public Bar, private Baz {
public:
    /** Makes one. */
    Foo(int a, const char* b = ",(");
    virtual ~Foo();
    T operator()(int) const; ///< calls
    friend void f();

protected:
    int mSize = 3;
    enum class Kind { One, Two = 2 };
    using Type = std::map<int, std::string>;
};
namespace a::b {
int g(int);
int g(double);
static int h;
} // namespace a::b
int a::b::g(int x) {
    struct Local {
        int y;
    };
    return x;
}
#define M(x) x
