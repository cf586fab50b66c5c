"""What can be changed in a C++ source: every mutant with its place, read from the syntax tree."""
import dataclasses
import functools
import pathlib
import hashlib
import re

import clang.cindex
from clang.cindex import CursorKind as Kind

import rules

FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.FUNCTION_TEMPLATE, Kind.CONSTRUCTOR,
             Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION}
SCOPES = {Kind.NAMESPACE, Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE,
          Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, Kind.UNION_DECL, Kind.LINKAGE_SPEC,
          Kind.UNEXPOSED_DECL}
# Kinds that libclang 16 has and its Python bindings do not.
for number in (152, 153, 154, 155, 604):
    if number >= len(Kind._kinds) or Kind._kinds[number] is None:
        Kind(number)
VARIABLES = {Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL}
# Their content is evaluated by the compiler, or names a type.
NOT_ENTERED = {Kind.STATIC_ASSERT, Kind.ENUM_DECL, Kind.TYPEDEF_DECL, Kind.TYPE_ALIAS_DECL,
               Kind.TYPE_ALIAS_TEMPLATE_DECL, Kind.TEMPLATE_TYPE_PARAMETER,
               Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.from_id(153), Kind.from_id(154), Kind.from_id(604),
               Kind.DECL_REF_EXPR, Kind.TYPE_REF, Kind.CXX_TYPEID_EXPR}

MACRO = re.compile(r"\b[A-Z][A-Z0-9_]{2,}\(")


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One change of one place. `form` says how it is written into the source:

    expression   the text from start to end is an expression, and `text` another one
    statement    the text is a statement with its semicolon, and `text` other statements
    insertion    start is end, and `text` are statements to put there
    """
    id: str
    file: str
    line: int
    source: str  # the line's text, without blanks around it
    start: int
    end: int
    form: str
    text: str
    change: str  # what a reader sees
    kind: str


class Finder:
    """Collects the mutants of one file from its translation unit."""

    def __init__(self, name, text, unit, path):
        self.name, self.text, self.path = name, text, path
        self.found, self.seen, self.occurrences = [], set(), {}
        for cursor in unit.cursor.get_children():
            if self.here(cursor):
                self.declaration(cursor)

    def here(self, cursor):
        return cursor.location.file is not None and cursor.location.file.name == self.path

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def of(self, cursor):
        start, end = self.span(cursor)
        return self.text[start:end]

    # Finding

    def declaration(self, cursor):
        if cursor.kind in FUNCTIONS:
            self.function(cursor)
        elif cursor.kind in VARIABLES:
            self.variable(cursor)
        elif cursor.kind in SCOPES:
            for child in cursor.get_children():
                self.declaration(child)

    def function(self, cursor):
        head = self.text[cursor.extent.start.offset:cursor.location.offset]
        if re.search(r"\bconsteval\b", head):
            return
        for child in cursor.get_children():
            if child.kind == Kind.PARM_DECL:
                self.variable(child)
            elif child.kind == Kind.COMPOUND_STMT:
                if self.of(child).startswith("{"):
                    self.walk(child, rules.Context(returns=cursor.result_type))
            elif cursor.kind == Kind.CONSTRUCTOR and child.kind.is_expression():
                self.walk(child, rules.Context())

    def variable(self, cursor, context=None):
        head = self.text[cursor.extent.start.offset:cursor.location.offset]
        if re.search(r"\b(constexpr|constinit)\b", head):
            return
        for child in cursor.get_children():
            # What stands before the name is its type.
            if child.extent.start.offset > cursor.location.offset and child.kind.is_expression():
                self.walk(child, context or rules.Context())

    def walk(self, cursor, context):
        """Mutants of a statement or an expression, and of all that is in it."""
        if cursor.kind in NOT_ENTERED:
            return
        if cursor.kind in VARIABLES:
            self.variable(cursor, context)
            return
        if cursor.kind in SCOPES or cursor.kind in FUNCTIONS:
            self.declaration(cursor)
            return
        if rules.SPEED_ONLY.match(self.of(cursor)) and cursor.kind == Kind.CALL_EXPR:
            return
        children = list(cursor.get_children())
        rules.mutate(self, cursor, children, context)
        for child in children:
            inner = rules.context_within(cursor, child, children, context)
            if inner is not None:
                self.walk(child, inner)

    # What the rules add

    def plain(self, start, end):
        """Whether the range has a text, and no macro in it."""
        return end > start and not MACRO.search(self.text, start, end)

    def add(self, form, start, end, text, change, kind):
        if form != "insertion" and not self.plain(start, end):
            return
        if form == "expression" and "co_await" in self.text[start:end]:
            return  # g++ 12 compiles a co_await within a conditional expression wrongly
        if (form, start, end, text) in self.seen:
            return
        self.seen.add((form, start, end, text))
        line = self.text.count("\n", 0, start) + 1
        source = readable(self.text.split("\n")[line - 1].strip())
        change = readable(change)
        # The same change of the same text has the same number wherever the line moves to.
        key = (self.name, source, change)
        self.occurrences[key] = self.occurrences.get(key, 0) + 1
        digest = hashlib.sha256(repr((key, self.occurrences[key])).encode()).hexdigest()[:8]
        if self.occurrences[key] > 1:  # of those that read the same, the second and further ones
            change += f" ({self.occurrences[key]})"
        self.found.append(Mutant(digest, self.name, line, source, start, end, form, text, change, kind))

    def replace(self, start, end, text, kind):
        old = " ".join(self.text[start:end].split())
        new = " ".join(text.split())
        self.add("expression", start, end, text, f"{rules.clipped(old)} -> {rules.clipped(new)}", kind)


def read(path):
    """A file's text with one character for each byte, because libclang counts bytes."""
    with open(path, "rb") as source:
        return source.read().decode("latin-1")


def readable(text):
    return text.encode("latin-1").decode("utf-8", errors="replace")


@functools.lru_cache(maxsize=None)
def index():
    # The module finds its library by itself where that has the usual name; Debian's has a version's.
    libraries = sorted(pathlib.Path("/usr/lib").glob("llvm-*/lib/libclang-*.so.1"))
    if libraries:
        clang.cindex.Config.set_library_file(str(libraries[-1]))
    return clang.cindex.Index.create()


def find(name, path, arguments):
    """All mutants of the file at `path`, in the order of the text.

    Throws ValueError where the file cannot be read as C++: its tree would have holes.
    """
    text = read(path)
    unit = index().parse(path, arguments)
    errors = [str(d) for d in unit.diagnostics if d.severity >= clang.cindex.Diagnostic.Error]
    if errors:
        raise ValueError(f"{name}: libclang cannot read it: {errors[0]}")
    return sorted(Finder(name, text, unit, path).found, key=lambda m: (m.start, -m.end, m.text))
