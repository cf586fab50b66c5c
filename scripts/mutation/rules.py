"""The kinds of mutants: what each kind of statement and expression can be changed into."""
import dataclasses
import re

from clang.cindex import CursorKind as Kind
from clang.cindex import TypeKind

RELATIONS = {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
             "==": ["!="], "!=": ["=="]}
ARITHMETIC = {"+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
              "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"],
              "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="],
              "<<=": [">>="], ">>=": ["<<="]}
LOGIC = {"&&": "||", "||": "&&"}
NEUTRAL = {"&&": "true", "||": "false"}
LOOPS = {Kind.FOR_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.CXX_FOR_RANGE_STMT}
INTEGER = re.compile(r"(0[xX][0-9a-fA-F']+|0[bB][01']+|[0-9][0-9']*)(([uU]?([lL]{0,2}|[zZ]))|[lL]{1,2}[uU])$")
NUMBER = re.compile(r"[0-9][0-9'.eE+-]*[fFlL]?$")
# Results that are equal to an empty pair of braces.
EMPTY = {"{}", "nullptr", "std::nullopt", '""', "0", "false"}
# The text after the last statement of the last case.
LAST_CASE = re.compile(r"\s*\}(?!\s*(case|default)\b)")
# Calls that only make later calls faster.
SPEED_ONLY = re.compile(r"[\w.>\[\]()-]*(\.|->)(reserve|shrink_to_fit)\(")


@dataclasses.dataclass(frozen=True)
class Context:
    """Where a statement stands."""
    returns: object = None  # the type of the function's result; None in a lambda
    in_loop: bool = False
    leaves: str = ""        # what a break leaves: "loop", "switch" or nothing
    list_of_statements: bool = False


def clipped(text, length=70):
    return text if len(text) <= length else text[:length - 3] + "..."


def context_within(cursor, child, children, context):
    """The context of a child, or None where it is not entered."""
    kind = cursor.kind
    if kind == Kind.LAMBDA_EXPR:
        if child.kind == Kind.COMPOUND_STMT:
            return Context()
        return context
    if kind == Kind.CASE_STMT and child == children[0]:
        return None  # the label
    if kind == Kind.MEMBER_REF_EXPR and child.kind == Kind.INTEGER_LITERAL:
        return None  # a template's argument
    statements = kind == Kind.COMPOUND_STMT or (
        kind in (Kind.CASE_STMT, Kind.DEFAULT_STMT) and child == children[-1]) or (
        kind in (Kind.IF_STMT, *LOOPS) and child == children[-1]) or (
        kind == Kind.IF_STMT and len(children) > 2 and child == children[-2])
    context = dataclasses.replace(context, list_of_statements=statements)
    if kind in LOOPS:
        return dataclasses.replace(context, in_loop=True, leaves="loop")
    if kind == Kind.SWITCH_STMT:
        return dataclasses.replace(context, leaves="switch")
    return context


def mutate(finder, cursor, children, context):
    kind = cursor.kind
    if kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.FOR_STMT):
        condition_of(finder, cursor, children)
    elif kind == Kind.CONDITIONAL_OPERATOR and children:
        condition(finder, children[0], ["true", "false"])
    elif kind == Kind.RETURN_STMT:
        return_statement(finder, cursor, children, context)
    elif kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT):
        jump(finder, cursor, context)
    elif kind.is_expression():
        if context.list_of_statements:
            leave_out(finder, cursor)
        expression(finder, cursor, children)
    if kind == Kind.CXX_FOR_RANGE_STMT and children:
        range_loop(finder, cursor, children[-1])


def operator_of(finder, cursor, children):
    """A binary operation's operator with its place and operands, or None."""
    if len(children) < 2:
        return None
    left, right = children[0], children[-1]
    start, end = finder.span(cursor)
    if left.extent.start.offset != start or right.extent.end.offset != end:
        return None
    from_, to = left.extent.end.offset, right.extent.start.offset
    gap = finder.text[from_:to]
    token = re.sub(r"//[^\n]*", "", gap).strip()
    if token not in RELATIONS and token not in ARITHMETIC and token not in LOGIC:
        return None
    at = from_ + gap.index(token)
    return token, at, left, right


def expression(finder, cursor, children):
    start, end = finder.span(cursor)
    text = finder.text[start:end]
    kind = cursor.kind
    if kind == Kind.CXX_BOOL_LITERAL_EXPR and text in ("true", "false"):
        finder.replace(start, end, "false" if text == "true" else "true", "constant")
    elif kind == Kind.INTEGER_LITERAL and INTEGER.match(text) and not in_template(finder, start, end):
        finder.replace(start, end, f"{text} + 1", "constant")
        finder.replace(start, end, f"{text} - 1", "constant")
    elif kind == Kind.FLOATING_LITERAL and NUMBER.match(text):
        finder.replace(start, end, f"{text} + 1", "constant")
    elif kind == Kind.STRING_LITERAL and text.endswith('"') and text not in ('""',):
        if not re.match(r"\w", finder.text[end:end + 1]):
            finder.replace(start, end, '""', "constant")
    elif kind == Kind.UNARY_OPERATOR:
        unary(finder, cursor, children)
    found = operator_of(finder, cursor, children)
    if found:
        binary(finder, cursor, *found)


def in_template(finder, start, end):
    before = finder.text[:start].rstrip()[-1:]
    after = finder.text[end:].lstrip()[:1]
    return (before == "<" and after in (">", ",")) or (before == "," and after == ">")


def unary(finder, cursor, children):
    start, end = finder.span(cursor)
    text = finder.text[start:end]
    if len(children) != 1:
        return
    operand = finder.of(children[0])
    if text.startswith("!") and not text.startswith("!=") and children[0].extent.end.offset == end:
        finder.replace(start, end, f"static_cast<bool>({operand})", "condition")
    elif text.startswith("-") and not text.startswith("--"):
        finder.replace(start, end, operand, "arithmetic")
    elif text.startswith("++"):
        finder.replace(start, end, "--" + text[2:], "arithmetic")
    elif text.startswith("--"):
        finder.replace(start, end, "++" + text[2:], "arithmetic")


def binary(finder, cursor, token, at, left, right):
    start, end = finder.span(cursor)
    before, after = finder.text[start:at], finder.text[at + len(token):end]
    if token in LOGIC:
        finder.replace(start, end, f"({before.rstrip()}) {LOGIC[token]} ({after.lstrip()})", "condition")
        for operand in (left, right):
            if finder.text[slice(*finder.span(operand))].count("&&") == 0:
                condition(finder, operand, [NEUTRAL[token]])
        return
    if token in ARITHMETIC:
        # On texts, streams and containers these are other operations.
        if cursor.type.get_canonical().kind in (TypeKind.RECORD, TypeKind.LVALUEREFERENCE):
            return
    for other in RELATIONS.get(token) or ARITHMETIC[token]:
        kind = "relation" if token in RELATIONS else "arithmetic"
        finder.replace(start, end, before + other + after, kind)


def condition(finder, cursor, values):
    """A condition with a constant value."""
    start, end = finder.span(cursor)
    if finder.text[start:end] in ("true", "false"):
        return
    for value in values:
        finder.replace(start, end, value, "condition")


def condition_of(finder, cursor, children):
    kind = cursor.kind
    if any(child.kind == Kind.VAR_DECL for child in children):
        return  # the condition declares a name
    text = finder.of(cursor)
    if re.match(r"if\s+(constexpr|consteval)", text):
        return
    if kind == Kind.DO_STMT:
        candidates = children[-1:]
    elif kind == Kind.FOR_STMT:
        start = cursor.extent.start.offset
        first = finder.text.index(";", start)
        candidates = [c for c in children[:-1] if c.extent.start.offset > first
                      and finder.text[first + 1:c.extent.start.offset].strip() == ""]
    else:
        candidates = [c for c in children[:-1] if c.kind.is_expression()][:1]
    for found in candidates:
        condition(finder, found, ["true", "false"] if kind == Kind.IF_STMT else ["false"])


def with_semicolon(finder, cursor):
    """Where a statement ends, its semicolon included, or None where it has none."""
    end = cursor.extent.end.offset
    rest = re.match(r"\s*;", finder.text[end:end + 200])
    return end + rest.end() if rest else None


def leave_out(finder, cursor):
    start, end = finder.span(cursor)[0], with_semicolon(finder, cursor)
    text = finder.text[start:end] if end else ""
    if end is None or SPEED_ONLY.match(text) or text.startswith(("static_cast<void>", "(void)")):
        return
    change = "leave out " + clipped(" ".join(text.split()))
    finder.add("statement", start, end, "", change, "statement")


def range_loop(finder, cursor, body):
    start, end = finder.span(cursor)
    head = clipped(" ".join(finder.text[start:body.extent.start.offset].split()))
    finder.add("statement", start, end if finder.text[end - 1] in ";}" else
               with_semicolon(finder, cursor) or end, "", f"leave out {head}", "statement")
    if body.kind == Kind.COMPOUND_STMT and finder.of(body).startswith("{"):
        at = body.extent.start.offset + 1
        finder.add("insertion", at, at, "break;", f"{head} break;", "flow")


def jump(finder, cursor, context):
    start, end = finder.span(cursor)[0], with_semicolon(finder, cursor)
    if end is None:
        return
    word = finder.of(cursor)
    if context.leaves != "switch" or not LAST_CASE.match(finder.text, end):
        finder.add("statement", start, end, "", f"leave out {word};", "flow")
    if word == "continue" and context.leaves == "loop":
        finder.add("statement", start, end, "break;", "continue; -> break;", "flow")
    elif word == "break" and context.leaves == "loop":
        finder.add("statement", start, end, "continue;", "break; -> continue;", "flow")


def return_statement(finder, cursor, children, context):
    start, end = finder.span(cursor)[0], with_semicolon(finder, cursor)
    if end is None:
        return
    if not children:
        finder.add("statement", start, end, "", "leave out return;", "flow")
        return
    value = children[0]
    from_, to = finder.span(value)
    text = finder.text[from_:to]
    if text in EMPTY or to <= from_:
        return
    kind = value.type.get_canonical().kind
    if kind == TypeKind.BOOL:
        if not operator_of_any(finder, value) and not text.startswith("!") and text != "true":
            finder.replace(from_, to, f"!({text})", "condition")
    elif context.returns is not None:
        result = context.returns.get_canonical()
        if result.kind == TypeKind.ENUM:
            other = (f"static_cast<std::remove_cvref_t<decltype({text})>>"
                     f"(static_cast<int>({text}) == 0)")
            finder.add("expression", from_, to, other, f"{clipped(text)} -> another one", "constant")
        elif result.kind not in (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE, TypeKind.VOID):
            change = f"return {clipped(' '.join(text.split()))}; -> return {{}};"
            finder.add("statement", start, end, "return {};", change, "flow")


def operator_of_any(finder, cursor):
    """Whether an expression, behind the conversions around it, is a binary operation."""
    span = finder.span(cursor)
    while True:
        children = list(cursor.get_children())
        if operator_of(finder, cursor, children):
            return True
        cursor = next((c for c in children if finder.span(c) == span), None)
        if cursor is None:
            return False
