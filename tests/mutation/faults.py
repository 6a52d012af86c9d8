"""Puts single faults into a C++ source, each behind a check of its number: `a < b` becomes
`(Mutant(17) ? (a <= b) : (a < b))`. One program has all of them, and has one at a time.

What is changed, within the bodies of functions and where no constant expression is needed:
  condition    a condition or comparison is turned
  boundary     < becomes <=, <= becomes <, > becomes >=, >= becomes >
  logic        && becomes ||, || becomes &&
  constant     a number is one more
  call         a call whose result nobody takes is left out
  return       a bool is turned, a number one more; of a pointer, an optional, a text or a list none is returned
"""

import functools
import re

from clang import cindex
from clang.cindex import CursorKind as Kind
from clang.cindex import TypeKind

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": None, "!=": None}
LOGIC = {"&&": "||", "||": "&&"}
FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION,
             Kind.FUNCTION_TEMPLATE}
INTEGERS = {TypeKind.CHAR_U, TypeKind.UCHAR, TypeKind.USHORT, TypeKind.UINT, TypeKind.ULONG, TypeKind.ULONGLONG,
            TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.SHORT, TypeKind.INT, TypeKind.LONG, TypeKind.LONGLONG}
FLOATS = {TypeKind.FLOAT, TypeKind.DOUBLE}
NUMBER = re.compile(r"^(0[xX][0-9a-fA-F']+|[0-9][0-9.']*([eE][-+]?[0-9]+)?)([uUlLzZfF]*)$")
# Whose literals are part of a type or a name, or are taken when it is compiled.
NAMES = {Kind.TYPE_REF, Kind.TEMPLATE_REF, Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR, Kind.OVERLOADED_DECL_REF,
         Kind.CXX_UNARY_EXPR, Kind.STATIC_ASSERT}
EMPTY = re.compile(r"^(const )?(class )?std::(__cxx11::)?(optional|vector|basic_string|basic_string_view|set|map|"
                   r"unique_ptr|shared_ptr|function|filesystem::path)\b")


@functools.cache
def parsed(path, arguments):
    return cindex.Index.create().parse(path, args=list(arguments))


class Fault:
    def __init__(self, number, file, line, kind, what):
        self.number, self.file, self.line, self.kind, self.what = number, file, line, kind, what
        # How a list of faults names it: a line may move, its text stays.
        self.name = ""


class Source:
    """One file: `faults` are those that were put into `text`."""

    def __init__(self, path, name, arguments, first, without):
        self.name = name
        self.bytes = path.read_bytes()
        self.lines = self.bytes.decode().split("\n")
        self.edits = []  # (offset, order, text)
        self.faults = []
        self.next = first
        self.without = without  # faults that did not compile, as (line, kind, what)
        unit = parsed(str(path), tuple(arguments))
        self.file = str(path)
        for cursor in unit.cursor.get_children():
            self.outside(cursor)
        self.text = self.edited()

    # --- what is there

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def text_of(self, cursor):
        start, end = self.span(cursor)
        return self.bytes[start:end].decode()

    def here(self, cursor):
        file = cursor.extent.start.file
        return file is not None and file.name == self.file

    def between(self, left, right):
        return self.bytes[self.span(left)[1]:self.span(right)[0]].decode()

    # --- edits

    def around(self, cursor, before, behind):
        """Outer edits are made before inner ones: at one place, the outer opens first and closes last."""
        start, end = self.span(cursor)
        depth = len(self.edits)
        self.edits.append((start, 1, depth, before))
        self.edits.append((end, 0, -depth, behind))

    def edited(self):
        out, at = [], 0
        for offset, _, _, text in sorted(self.edits, key=lambda edit: edit[:3]):
            out.append(self.bytes[at:offset])
            out.append(text.encode())
            at = offset
        out.append(self.bytes[at:])
        return b"".join(out)

    def fault(self, cursor, kind, what):
        """A new one's number, or None if it is one of those that did not compile."""
        line = cursor.extent.start.line
        what = " ".join(what.split())[:90]
        if (line, kind, what) in self.without:
            # The others keep their numbers, so that no other file has to be compiled again.
            self.next += 1
            return None
        fault = Fault(self.next, self.name, line, kind, what)
        fault.name = f"{self.name}: {' '.join(self.lines[line - 1].split())} [{kind}: {what}]"
        self.faults.append(fault)
        self.next += 1
        return fault.number

    # --- the walk

    def outside(self, cursor):
        if cursor.kind in FUNCTIONS:
            self.function(cursor)
        elif cursor.kind in (Kind.NAMESPACE, Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.UNEXPOSED_DECL, Kind.LINKAGE_SPEC):
            if self.here(cursor):
                for child in cursor.get_children():
                    self.outside(child)

    def function(self, cursor):
        if not self.here(cursor):
            return
        bodies = [child for child in cursor.get_children() if child.kind == Kind.COMPOUND_STMT]
        if not bodies:
            return
        head = self.bytes[self.span(cursor)[0]:self.span(bodies[0])[0]].decode()
        if re.search(r"\b(constexpr|consteval)\b", head):
            return
        self.result = cursor.result_type
        for body in bodies:
            self.inside(body, cursor, None)

    def inside(self, cursor, parent, function):
        if not self.here(cursor):
            return
        kind = cursor.kind
        children = list(cursor.get_children())
        if kind in NAMES and kind != Kind.MEMBER_REF_EXPR:
            return
        if kind == Kind.VAR_DECL or kind == Kind.DECL_STMT:
            head = self.text_of(cursor)
            if re.match(r"(static\s+)?(constexpr|const static|static const)\b", head):
                return
        if kind == Kind.LAMBDA_EXPR:
            kept, self.result = self.result, None
            for child in children:
                if child.kind == Kind.COMPOUND_STMT:
                    self.inside(child, cursor, None)
            self.result = kept
            return
        if kind == Kind.CASE_STMT:
            for child in children[1:]:
                self.statement(child)
                self.inside(child, cursor, None)
            return
        if kind == Kind.DEFAULT_STMT:
            for child in children:
                self.statement(child)
        if kind == Kind.IF_STMT and re.match(r"if\s+constexpr", self.text_of(cursor)):
            for child in children[1:]:
                self.statement(child)
                self.inside(child, cursor, None)
            return
        if kind == Kind.COMPOUND_STMT:
            for child in children:
                self.statement(child)
        elif kind in (Kind.IF_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT):
            if children:
                self.statement(children[-1])
            if kind == Kind.IF_STMT and len(children) > 2 and self.is_else(cursor, children):
                self.statement(children[-2])
        if kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
            self.condition(cursor, children)
        elif kind == Kind.BINARY_OPERATOR and len(children) == 2:
            self.operator(cursor, children)
        elif kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL):
            self.literal(cursor, parent)
        elif kind == Kind.RETURN_STMT and children:
            self.returned(cursor, children[0])
        for child in children:
            self.inside(child, cursor, function)

    def is_else(self, cursor, children):
        return "else" in self.between(children[-2], children[-1])

    def bare(self, cursor):
        while cursor.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
            children = list(cursor.get_children())
            if len(children) != 1 or not self.here(children[0]):
                break
            cursor = children[0]
        return cursor

    def is_comparison(self, cursor):
        cursor = self.bare(cursor)
        children = list(cursor.get_children())
        if cursor.kind != Kind.BINARY_OPERATOR or len(children) != 2:
            return False
        word = self.between(*children).strip(" \n()")
        return word in COMPARISONS or word in LOGIC

    def condition(self, cursor, children):
        """Those that are no comparison: these are turned where they stand."""
        test = children[0]
        if len(children) < 2 or test.kind in (Kind.DECL_STMT, Kind.VAR_DECL) or self.is_comparison(test):
            return
        # `if (init; condition)` has its condition behind.
        between = self.bytes[self.span(test)[1]:self.span(children[1])[0]].decode()
        if ";" in between:
            return
        number = self.fault(test, "condition", f"not {self.text_of(test)}")
        if number:
            self.around(test, f"(Mutant({number}) != static_cast<bool>(", "))")

    def operator(self, cursor, children):
        word = self.between(*children).strip(" \n()")
        left, right = children
        gap = self.between(left, right)
        if gap.strip() != word:  # parentheses or comments about it
            return
        start, end = self.span(left)[1], self.span(right)[0]
        text = self.text_of(cursor)
        if word in COMPARISONS:
            number = self.fault(cursor, "condition", f"not {text}")
            if number:
                self.around(cursor, f"(Mutant({number}) != (", "))")
        other = COMPARISONS.get(word) or LOGIC.get(word)
        if not other:
            return
        number = self.fault(cursor, "logic" if word in LOGIC else "boundary", f"{other} in {text}")
        if not number:
            return
        # Both sides stand once: a function takes the operator apart. Of && and || the right side waits for the left one.
        if word in LOGIC:
            self.around(cursor, f"mutants::{'And' if word == '&&' else 'Or'}({number}, static_cast<bool>(", "); })")
            self.edits.append((start, 2, 0, ") /*"))
            self.edits.append((end, -1, 0, "*/ , [&] { return static_cast<bool>("))
        else:
            name = {"<": "Less", "<=": "LessEqual", ">": "Greater", ">=": "GreaterEqual"}[word]
            self.around(cursor, f"mutants::{name}({number}, (", "))")
            self.edits.append((start, 2, 0, ") /*"))
            self.edits.append((end, -1, 0, "*/ , ("))

    def literal(self, cursor, parent):
        text = self.text_of(cursor)
        match = NUMBER.match(text)
        if not match or parent is None:
            return
        if parent.kind in NAMES or parent.kind == Kind.MEMBER_REF_EXPR:
            return
        if parent.kind in (Kind.VAR_DECL, Kind.FIELD_DECL):
            head = self.bytes[parent.location.offset:self.span(cursor)[0]].decode()
            if parent.location.offset > self.span(cursor)[0] or not re.search(r"[={(]", head):
                return
        if parent.kind == Kind.CALL_EXPR and "<" in self.bytes[self.span(parent)[0]:self.span(cursor)[0]].decode() and \
                "(" not in self.bytes[self.span(parent)[0]:self.span(cursor)[0]].decode():
            return
        target = cursor.type
        if parent.kind == Kind.UNEXPOSED_EXPR:
            if parent.type.kind == TypeKind.POINTER:
                return
            if parent.type.get_canonical().kind in INTEGERS | FLOATS:
                target = parent.type
        spelling = target.get_canonical().spelling.replace("const ", "")
        number = self.fault(cursor, "constant", f"{text} + 1")
        if number:
            self.around(cursor, f"static_cast<{spelling}>(Mutant({number}) + ", ")")

    def statement(self, cursor):
        """A call that stands by itself."""
        call = self.bare(cursor) if cursor.kind == Kind.UNEXPOSED_EXPR else cursor
        if call.kind != Kind.CALL_EXPR or not self.here(cursor):
            return
        number = self.fault(cursor, "call", f"without {self.text_of(cursor)}")
        if number:
            self.around(cursor, f"(Mutant({number}) ? void() : void(", "))")

    def returned(self, cursor, value):
        if self.result is None:
            return
        kind = self.result.get_canonical().kind
        text = self.text_of(value)
        bare = self.bare(value)
        if kind == TypeKind.BOOL:
            if self.is_comparison(value):
                return
            number = self.fault(value, "return", f"not {text}")
            if number:
                self.around(value, f"(Mutant({number}) != static_cast<bool>(", "))")
        elif kind in INTEGERS | FLOATS:
            if bare.kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL):
                return
            number = self.fault(value, "return", f"{text} + 1")
            if number:
                self.around(value, f"(Mutant({number}) + (", "))")
        elif kind == TypeKind.POINTER or EMPTY.match(self.result.get_canonical().spelling):
            if text in ("{}", "nullptr", "std::nullopt"):
                return
            number = self.fault(value, "return", f"none for {text}")
            if number:
                start, end = self.span(cursor)
                depth = len(self.edits)
                self.edits.append((start, 1, depth, f"{{ if (Mutant({number})) return {{}}; "))
                semicolon = self.bytes.index(b";", end) + 1
                self.edits.append((semicolon, 0, -depth, " }"))
