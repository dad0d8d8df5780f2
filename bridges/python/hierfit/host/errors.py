"""What goes wrong when documents are run and rendered."""

from __future__ import annotations

import re

_PLACE = re.compile(r"(.*):([0-9]+):([0-9]+)", re.DOTALL)
_PATH = re.compile(r"([^\s:]+(?:/[^\s:]+)*): (.*)", re.DOTALL)


class HierfitError(RuntimeError):
    """The report could not be made; the installation lacks a part, say."""


class DocumentError(HierfitError, ValueError):
    """A document that cannot be read: its file, the line and column from 1, and the path of the element, each None
    where it is not known; `reason` is what was expected."""

    def __init__(
        self,
        text: str,
        file: str | None = None,
        line: int | None = None,
        column: int | None = None,
        path: str | None = None,
        reason: str | None = None,
    ) -> None:
        super().__init__(text)
        self.file, self.line, self.column, self.path = file, line, column, path
        self.reason = reason or text

    def __reduce__(self) -> tuple[object, ...]:
        return DocumentError, (str(self), self.file, self.line, self.column, self.path, self.reason)


def document_error(text: str, place: str | None, names: dict[str, str]) -> DocumentError:
    """From a diagnostic; `names` are the paths of the documents by what the library calls them."""
    found = _PLACE.fullmatch(place or "")
    file, line, column = (names.get(found[1], found[1]), int(found[2]), int(found[3])) if found else (None, None, None)
    parts = _PATH.fullmatch(text)
    path, reason = (parts[1], parts[2]) if parts and file is not None else (None, text)
    where = f"{file}:{line}:{column}: " if file is not None else ""
    return DocumentError(where + text, file, line, column, path, reason)


def saved_error(text: str, file: str) -> DocumentError:
    """Of a saved run: "41:7: reason" with line and column, or "/items/3: reason" with the path in it."""
    place = re.match(r"([0-9]+):([0-9]+): ", text)
    if place:
        reason = text[place.end() :]
        return DocumentError(f"{file}:{text}", file, int(place[1]), int(place[2]), None, reason)
    path, _, reason = text.partition(": ")
    inside = path.startswith("/") and bool(reason)
    return DocumentError(f"{file}: {text}", file, None, None, path if inside else None, reason if inside else text)
