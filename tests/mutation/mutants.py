"""The small changes that a source is given: one operator, number, argument, condition or statement.

They are made where the syntax tree says so, never in comments, texts, macros or what only the compiler
reads. Each has an id, FILE:LINE:COLUMN:KIND, with which it is found again as long as the file is the same.
"""

import difflib
import hashlib
import re
import shlex
from dataclasses import dataclass
from pathlib import Path

from clang.cindex import Config, CursorKind as Kind, Index, TranslationUnit, TypeKind

Config.set_compatibility_check(False)

SUFFIXES = (".h", ".cpp")

NAMES = {"<": "lt", "<=": "le", ">": "gt", ">=": "ge", "==": "eq", "!=": "ne", "&&": "and", "||": "or",
         "+": "plus", "-": "minus", "*": "times", "/": "over", "&": "bit-and", "|": "bit-or",
         "<<": "left", ">>": "right", "+=": "add", "-=": "subtract", "|=": "unite", "&=": "intersect",
         "*=": "multiply", "/=": "divide", "++": "up", "--": "down"}
COMPARISONS = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
               "==": ("!=",), "!=": ("==",)}
OTHERS = {"&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",),
          "&": ("|",), "|": ("&",), "^": ("|",), "<<": (">>",), ">>": ("<<",)}
ASSIGNMENTS = {"+=": ("-=",), "-=": ("+=",), "|=": ("&=",), "&=": ("|=",), "*=": ("/=",), "/=": ("*=",),
               "%=": ("*=",), "^=": ("|=",), "<<=": (">>=",), ">>=": ("<<=",)}
NAMES.update({">>=": "shift-right", "<<=": "shift-left"})

FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.CONVERSION_FUNCTION, Kind.FUNCTION_TEMPLATE)
RECORDS = (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE,
           Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, Kind.UNION_DECL)
# What is worked out by the compiler alone, or has no code.
SKIPPED = (Kind.STATIC_ASSERT, Kind.CXX_UNARY_EXPR, Kind.TEMPLATE_TYPE_PARAMETER,
           Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.TEMPLATE_TEMPLATE_PARAMETER, Kind.TYPEDEF_DECL,
           Kind.TYPE_ALIAS_DECL, Kind.TYPE_ALIAS_TEMPLATE_DECL, Kind.FRIEND_DECL, Kind.USING_DECLARATION)
WRAPPERS = (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR)
DROPPED = (Kind.CALL_EXPR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR,
           Kind.CXX_DELETE_EXPR, Kind.CXX_THROW_EXPR, Kind.UNEXPOSED_EXPR, Kind.BREAK_STMT,
           Kind.CONTINUE_STMT, Kind.RETURN_STMT)
INTEGERS = (TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.UCHAR, TypeKind.SHORT, TypeKind.USHORT,
            TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG,
            TypeKind.ULONGLONG)
FLOATS = (TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.LONGDOUBLE)
REFERENCES = (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE)
TABLE = 20  # more elements than this are data, of which samples prove little
COMMENTS = re.compile(rb"//[^\n]*|/\*.*?\*/", re.DOTALL)


@dataclass(frozen=True)
class Mutant:
    file: str      # relative to the root of the sources
    line: int
    column: int
    kind: str
    start: int     # the bytes that are replaced ...
    end: int
    new: str       # ... by these
    function: str  # what it is part of, as "Class::Function"; the name of the file outside of any
    change: str    # in words that outlive a move to other lines

    @property
    def id(self):
        return f"{self.file}:{self.line}:{self.column}:{self.kind}"

    def apply(self, source):
        return source[:self.start] + self.new.encode() + source[self.end:]

    def diff(self, source):
        before, after = (text.decode("utf-8", "replace").splitlines(keepends=True)
                         for text in (source, self.apply(source)))
        return "".join(difflib.unified_diff(before, after, f"a/{self.file}", f"b/{self.file}", n=1))


class Finder:
    """Collects the mutants of one file."""

    def __init__(self, file, source, unit):
        self.file, self.source, self.unit = file, source, unit
        self.found = {}
        self.compared = set()
        self.macros = []
        for cursor in unit.cursor.get_children():
            if self._is_here(cursor) and cursor.kind == Kind.MACRO_INSTANTIATION:
                self.macros.append((cursor.extent.start.offset, cursor.extent.end.offset))

    def find(self):
        for cursor in self.unit.cursor.get_children():
            if self._is_here(cursor):
                self._visit(cursor, Path(self.file).name)
        return [mutant for mutant in self.found.values()
                if mutant.kind not in ("negate", "return-not")
                or (mutant.start, mutant.end) not in self.compared]

    def _is_here(self, cursor):
        file = cursor.location.file
        return file is not None and file.name == self.unit.spelling

    # Places in the source

    @staticmethod
    def _span(cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def _text(self, cursor):
        start, end = self._span(cursor)
        return self.source[start:end]

    def _add(self, kind, start, end, new, function, change=None):
        if any(start < macro_end and end > macro_start for macro_start, macro_end in self.macros):
            return
        line = self.source.count(b"\n", 0, start) + 1
        column = start - (self.source.rfind(b"\n", 0, start) + 1) + 1
        if change is None:
            change = f"`{squeezed(self.source[start:end])}` becomes `{squeezed(new)}`"
        mutant = Mutant(self.file, line, column, kind, start, end, new.decode(), function, change)
        self.found.setdefault(mutant.id, mutant)

    def _operator_between(self, left, right):
        """The operator that stands alone between two operands, and where; None when there is more."""
        start, end = self._span(left)[1], self._span(right)[0]
        if not 0 <= start < end:
            return None
        between = COMMENTS.sub(lambda match: b" " * len(match[0]), self.source[start:end])
        text = between.strip()
        at = start + between.find(text)
        return (text.decode("utf-8", "replace"), at, at + len(text)) if text else None

    # The tree

    def _visit(self, cursor, function):
        kind = cursor.kind
        if kind in SKIPPED:
            return
        if kind in FUNCTIONS:
            self._visit_function(cursor)
            return
        if kind == Kind.INIT_LIST_EXPR and len(list(cursor.get_children())) > TABLE:
            return
        if kind in RECORDS:
            function = qualified(cursor)
        children = list(cursor.get_children())
        change = getattr(self, "_" + kind.name.lower(), None)
        if change is not None:
            change(cursor, children, function)
        if kind in (Kind.VAR_DECL, Kind.FIELD_DECL):
            children = self._initializers(cursor, children)
        for child in children:
            self._visit(child, function)

    def _visit_function(self, cursor):
        name = qualified(cursor)
        body = None
        for child in cursor.get_children():
            if child.kind == Kind.COMPOUND_STMT:
                body = child
            elif child.kind == Kind.PARM_DECL or (cursor.kind == Kind.CONSTRUCTOR
                                                  and child.kind.is_expression()):
                self._visit(child, name)
        if body is not None:
            self._visit(body, name)

    def _initializers(self, cursor, children):
        if cursor.type.kind in (TypeKind.CONSTANTARRAY, TypeKind.INCOMPLETEARRAY):
            return [child for child in children if child.kind == Kind.INIT_LIST_EXPR]
        return [child for child in children
                if child.kind.is_expression() and not self._is_bit_width(cursor, child)]

    def _is_bit_width(self, cursor, child):
        start, end = cursor.extent.start.offset, child.extent.start.offset
        return cursor.kind == Kind.FIELD_DECL and b":" in self.source[start:end].replace(b"::", b"")

    # Operators

    def _replace_operator(self, place, table, function, whole):
        if place is None:
            return
        old, start, end = place
        if old in COMPARISONS:
            self.compared.add(whole)
        for new in table.get(old, ()):
            text = squeezed(self.source[whole[0]:start] + new.encode() + self.source[end:whole[1]])
            self._add(f"to-{NAMES[new]}", start, end, new.encode(), function,
                      f"`{squeezed(self.source[whole[0]:whole[1]])}` becomes `{text}`")

    def _binary_operator(self, cursor, children, function):
        if len(children) == 2:
            self._replace_operator(self._operator_between(*children), COMPARISONS | OTHERS, function,
                                   self._span(cursor))

    def _compound_assignment_operator(self, cursor, children, function):
        if len(children) == 2:
            self._replace_operator(self._operator_between(*children), ASSIGNMENTS, function,
                                   self._span(cursor))

    def _unary_operator(self, cursor, children, function):
        start, end = self._span(cursor)
        if len(children) != 1:
            return
        inner_start, inner_end = self._span(children[0])
        if self.source[start:start + 2] in (b"++", b"--"):
            self._replace_operator((self.source[start:start + 2].decode(), start, start + 2),
                                   {"++": ("--",), "--": ("++",)}, function, (start, end))
        elif self.source[end - 2:end] in (b"++", b"--") and inner_end <= end - 2:
            self._replace_operator((self.source[end - 2:end].decode(), end - 2, end),
                                   {"++": ("--",), "--": ("++",)}, function, (start, end))
        elif self.source[start:start + 1] in (b"!", b"-", b"~") and inner_start == start + 1:
            if self.source[start:start + 1] == b"-" and children[0].kind == Kind.INTEGER_LITERAL:
                return
            self._add("no-sign", start, inner_end, self.source[inner_start:inner_end], function)

    # Numbers and truth

    def _integer_literal(self, cursor, children, function):
        start, end = self._span(cursor)
        match = re.fullmatch(rb"(\d[\d']*|0[xX][\da-fA-F']+)([uUlL]*)", self.source[start:end])
        if not match or (len(match[1]) > 1 and match[1].isdigit() and match[1].startswith(b"0")):
            return
        value = int(match[1].replace(b"'", b""), 0)
        line_start = self.source.rfind(b"\n", 0, start) + 1
        line = squeezed(self.source[line_start:self.source.find(b"\n", start)])
        for kind, new in (("one-more", value + 1), ("one-less", value - 1)):
            if new >= 0:
                self._add(kind, start, end, b"%d%s" % (new, match[2]), function,
                          f"{value} becomes {new} in `{line}`")

    def _cxx_bool_literal_expr(self, cursor, children, function):
        text = self._text(cursor)
        if text in (b"true", b"false"):
            start, end = self._span(cursor)
            line_start = self.source.rfind(b"\n", 0, start) + 1
            line = squeezed(self.source[line_start:self.source.find(b"\n", start)])
            new = b"false" if text == b"true" else b"true"
            self._add("flip", start, end, new, function,
                      f"{text.decode()} becomes {new.decode()} in `{line}`")

    # Conditions

    def _negate(self, condition, function):
        inner = condition
        while inner.kind in WRAPPERS:
            below = list(inner.get_children())
            if len(below) != 1 or self._span(below[0]) != self._span(inner):
                break
            inner = below[0]
        if not condition.kind.is_expression():
            return
        start, end = self._span(condition)
        if self.source[start:start + 1] == b"!" and inner.kind == Kind.UNARY_OPERATOR:
            return
        if start < end:
            self._add("negate", start, end, b"!(" + self.source[start:end] + b")", function)

    def _if_stmt(self, cursor, children, function):
        start = cursor.extent.start.offset
        if re.match(rb"if\s+constexpr", self.source[start:start + 30]):
            return
        for child, after in zip(children, children[1:]):
            between = self.source[child.extent.end.offset:after.extent.start.offset]
            if between.strip().startswith(b")"):
                self._negate(child, function)
                break
        for body in children[1:]:
            self._drop(body, function)

    def _while_stmt(self, cursor, children, function):
        if len(children) == 2:
            self._negate(children[0], function)
        self._drop(children[-1], function)

    def _conditional_operator(self, cursor, children, function):
        self._negate(children[0], function)

    # Statements

    def _compound_stmt(self, cursor, children, function):
        for child in children:
            self._drop(child, function)

    def _case_stmt(self, cursor, children, function):
        self._drop(children[-1], function)

    def _default_stmt(self, cursor, children, function):
        self._drop(children[-1], function)

    def _for_stmt(self, cursor, children, function):
        self._drop(children[-1], function)

    def _cxx_for_range_stmt(self, cursor, children, function):
        self._drop(children[-1], function)

    def _drop(self, statement, function):
        start, end = self._span(statement)
        text = self.source[start:end]
        if (statement.kind not in DROPPED or not self.source[end:].lstrip().startswith(b";")
                or (statement.kind == Kind.RETURN_STMT and text != b"return")):
            return
        if self._is_room_for_standard_elements(statement):
            return
        self._add("drop", start, end, b"", function, f"`{squeezed(text)}` dropped")

    @staticmethod
    def _is_room_for_standard_elements(statement):
        """Whether the statement only asks ahead for the memory that a standard container will need."""
        called = statement.referenced if statement.kind == Kind.CALL_EXPR else None
        if called is None or called.spelling != "reserve":
            return False
        above = called.semantic_parent
        while above is not None and above.kind != Kind.TRANSLATION_UNIT:
            if above.kind == Kind.NAMESPACE and above.spelling == "std":
                return True
            above = above.semantic_parent
        return False

    # Values

    def _return_stmt(self, cursor, children, function):
        if len(children) != 1:
            return
        value = children[0]
        start, end = self._span(value)
        text, result = self.source[start:end], value.type.get_canonical()
        if start >= end:
            return
        if result.kind == TypeKind.BOOL:
            inner = value
            while inner.kind in WRAPPERS and len(list(inner.get_children())) == 1:
                inner = next(iter(inner.get_children()))
            plain = inner.kind in (Kind.CXX_BOOL_LITERAL_EXPR, Kind.UNARY_OPERATOR)
            if not plain:
                self._add("return-not", start, end, b"!(" + text + b")", function)
        elif result.kind in INTEGERS + FLOATS:
            if not re.fullmatch(rb"[\d'.]+[uUlLfF]*", text):
                self._add("return-more", start, end, b"(" + text + b") + 1", function)
        elif result.kind == TypeKind.POINTER:
            if text != b"nullptr":
                self._add("return-null", start, end, b"nullptr", function)
        elif result.kind in (TypeKind.RECORD, TypeKind.ELABORATED) and text != b"{}":
            self._add("return-empty", start, end, b"{}", function)

    def _call_expr(self, cursor, children, function):
        arguments = list(cursor.get_arguments())
        if cursor.spelling in ("operator==", "operator!=", "operator<", "operator<=", "operator>",
                               "operator>=") and len(arguments) == 2:
            self._replace_operator(self._operator_between(*arguments), COMPARISONS, function,
                                   self._span(cursor))
        elif not cursor.spelling.startswith("operator") and cursor.spelling not in ("min", "max", "swap"):
            self._swap(arguments, function)

    def _init_list_expr(self, cursor, children, function):
        self._swap(children, function)

    def _swap(self, arguments, function):
        for first, second in zip(arguments, arguments[1:]):
            (start, middle), (after, end) = self._span(first), self._span(second)
            one, two = self.source[start:middle], self.source[after:end]
            if (start < middle < after < end and one != two and bare_type(first) == bare_type(second)
                    and self.source[middle:after].strip() == b","):
                self._add("swap", start, end, two + self.source[middle:after] + one, function)


def qualified(cursor):
    names = [cursor.spelling]
    above = cursor.semantic_parent
    while above is not None and above.kind in RECORDS:
        names.insert(0, above.spelling)
        above = above.semantic_parent
    return "::".join(re.sub(r"<.*>$", "", name) for name in names)


def bare_type(cursor):
    kind = cursor.type.get_canonical()
    if kind.kind in REFERENCES:
        kind = kind.get_pointee()
    return re.sub(r"^const ", "", kind.spelling)


def squeezed(text):
    return " ".join(text.decode("utf-8", "replace").split())


def compiler_options(commands, file):
    """How the build compiles the file; for a header, all folders of headers that the build names."""
    options = []
    for command in commands:
        words = shlex.split(command["command"])
        if words[0].endswith("ccache"):
            words = words[1:]
        included = []
        for at, word in enumerate(words):
            if word in ("-isystem", "-I"):
                included += [word, words[at + 1]]
            elif word.startswith(("-I", "-D", "-std=")):
                included.append(word)
        if command["file"] == file:
            return included
        options += [word for word in included if not word.startswith("-D")]
    return list(dict.fromkeys(word.replace("-isystem", "-I") if word == "-isystem" else word
                              for word in joined(options)))


def joined(options):
    """Options and their folders in one word each, so that equal ones can be left out."""
    words = iter(options)
    for word in words:
        yield "-I" + next(words) if word in ("-isystem", "-I") else word


def find(root, file, commands):
    """The mutants of `file`, which is relative to `root`, by their place."""
    path = str(root / file)
    options = ["-x", "c++", *compiler_options(commands, path)]
    unit = Index.create().parse(path, args=options,
                                options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    errors = [str(message) for message in unit.diagnostics if message.severity >= 3]
    if errors:
        raise RuntimeError(f"{file} cannot be read: {errors[0]}")
    return sorted(Finder(file, Path(path).read_bytes(), unit).find(),
                  key=lambda mutant: (mutant.start, mutant.end, mutant.kind))


def drawn(mutants, seed):
    """The mutants in an order that depends on the seed and on each one alone: what is drawn stays
    drawn when more are wanted, or when other places change."""
    def rank(mutant):
        text = f"{seed}:{mutant.file}:{mutant.function}:{mutant.kind}:{mutant.change}"
        return hashlib.sha256(text.encode()).digest()

    return sorted(mutants, key=rank)
