"""How the variables of a formula stand in the documents."""

from __future__ import annotations

import ast
from dataclasses import dataclass


@dataclass(frozen=True, slots=True)
class Variable:
    """A variable of a formula: its code, the field that stands for it, a covariate's power, and the names in it."""

    code: str
    field: str
    power: int = 1
    names: tuple[str, ...] = ()

    @property
    def fields(self) -> list[str]:
        return [self.field] * self.power


def parse(code: str) -> ast.expr | None:
    try:
        return ast.parse(code.strip(), mode="eval").body
    except SyntaxError:
        return None


def plain_name(tree: ast.expr | None) -> str | None:
    """The column that x or Q("x") is."""
    if isinstance(tree, ast.Name):
        return tree.id
    if isinstance(tree, ast.Call) and isinstance(tree.func, ast.Name) and tree.func.id == "Q" and len(tree.args) == 1:
        argument = tree.args[0]
        if isinstance(argument, ast.Constant) and isinstance(argument.value, str):
            return argument.value
    return None


def names_in(code: str) -> tuple[str, ...]:
    """All names of an expression, those in Q() among them, each once."""
    tree = parse(code)
    if tree is None:
        return ()
    parts = list(ast.walk(tree))
    called = {id(part.func) for part in parts if isinstance(part, ast.Call)}
    found = (plain_name(part) for part in parts if isinstance(part, ast.expr) and id(part) not in called)
    return tuple(dict.fromkeys(name for name in found if name is not None))


def describe(code: str, alone: frozenset[str] = frozenset()) -> Variable:
    """x and Q("x") are the field x; so is C(x, ...). I(x ** 2) is x twice where x is among the names that stand
    `alone` in the formula. Anything else is a field that is called as it is written."""
    tree = parse(code)
    names = names_in(code)
    name = plain_name(tree)
    if name is not None:
        return Variable(code, name, 1, names)
    if isinstance(tree, ast.Call) and isinstance(tree.func, ast.Name) and tree.args:
        inner = tree.args[0]
        if tree.func.id == "C" and (name := plain_name(inner)) is not None:
            return Variable(code, name, 1, names)
        if tree.func.id == "I" and isinstance(inner, ast.BinOp) and isinstance(inner.op, ast.Pow):
            power = inner.right.value if isinstance(inner.right, ast.Constant) else None
            name = plain_name(inner.left)
            if name in alone and isinstance(power, int) and 2 <= power <= 9:
                return Variable(code, str(name), power, names)
    return Variable(code, " ".join(code.split()), 1, names)


def operands(code: str, operator: type[ast.operator]) -> tuple[str | None, str | None]:
    """The columns on both sides of an operator, as in a / b or I(a / b); None for what is no column."""
    tree = parse(code)
    if isinstance(tree, ast.Call) and isinstance(tree.func, ast.Name) and tree.func.id == "I" and len(tree.args) == 1:
        tree = tree.args[0]
    if not (isinstance(tree, ast.BinOp) and isinstance(tree.op, operator)):
        return None, None
    return plain_name(tree.left), plain_name(tree.right)
