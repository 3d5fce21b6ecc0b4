{"_type": "tag", "name": "C", "path": "h.rb", "language": "Ruby", "line": 3, "kind": "class", "inherits": "D", "scope": "M", "scopeKind": "module", "end": 9}
{"_type": "tag", "name": "M", "path": "h.rb", "language": "Ruby", "line": 1, "kind": "module", "end": 10}
{"_type": "tag", "name": "X", "path": "h.rb", "language": "Ruby", "line": 4, "kind": "constant", "scope": "M.C", "scopeKind": "class"}
{"_type": "tag", "name": "a", "path": "h.rb", "language": "Ruby", "line": 5, "kind": "accessor", "scope": "M.C", "scopeKind": "class"}
{"_type": "tag", "name": "a=", "path": "h.rb", "language": "Ruby", "line": 5, "kind": "accessor", "scope": "M.C", "scopeKind": "class"}
{"_type": "tag", "name": "b", "path": "h.rb", "language": "Ruby", "line": 5, "kind": "accessor", "scope": "M.C", "scopeKind": "class"}
{"_type": "tag", "name": "b=", "path": "h.rb", "language": "Ruby", "line": 5, "kind": "accessor", "scope": "M.C", "scopeKind": "class"}
{"_type": "tag", "name": "f", "path": "h.rb", "language": "Ruby", "line": 6, "kind": "singletonMethod", "signature": "(a, *b, &c)", "scope": "M.C", "scopeKind": "class", "end": 6}
{"_type": "tag", "name": "g?", "path": "h.rb", "language": "Ruby", "line": 8, "kind": "method", "signature": "()", "scope": "M.C", "scopeKind": "class", "end": 8}
====
module M
  # Doc
  class C < D
    X = 1
    attr_accessor :a, :b
    def self.f(a, *b, &c); end
    private
    def g?; end
  end
end
