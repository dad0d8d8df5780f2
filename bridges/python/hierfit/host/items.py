"""Items of the output document by name, and how they show themselves in a notebook."""

from __future__ import annotations

import itertools
import re
from collections.abc import Iterator, Mapping
from typing import TYPE_CHECKING, Any, TypeVar

from .frames import frame_of

if TYPE_CHECKING:
    from .run import Run

LONGEST_NAME = 64
_KINDS = {"heading": "Section", "table": "Table", "chart": "Chart", "message": "Message"}


def _source(text: dict[str, Any]) -> str:
    """What a text was made from: its words in no language."""
    origin = text["from"]
    if "string" in origin:
        return origin["string"]
    if "value" in origin:
        value = origin["value"]
        return f"{origin['variable']} {value if isinstance(value, str) else text['text']}"
    if "variable" in origin:
        return origin["variable"]
    if "pattern" in origin:
        parts = [re.sub(r"\^[0-9]*", "", origin["pattern"])]
        for argument in origin["arguments"]:
            parts += map(_source, argument["sublist"] if "sublist" in argument else [argument])
        return " ".join(part for i, part in enumerate(parts) if i or part)
    return text["text"]


def _slug(text: str) -> str:
    slug, is_apart = "", False
    for character in text.encode():
        if not (chr(character).isascii() and (chr(character).isalnum() or character == ord("_"))):
            is_apart = True
            continue
        if len(slug) + 2 > LONGEST_NAME:
            break
        if is_apart and slug:
            slug += "-"
        is_apart = False
        slug += chr(character)
    return slug


def _kind_name(item: dict[str, Any]) -> str:
    kind = item["kind"]
    if kind == "heading":
        name = _slug(_source(item["title"]))
    elif kind == "table":
        name = _slug(_source(item["subtype"]))
    elif kind == "chart":
        name = _slug(item["template"].partition(".")[0])
    else:
        name = "Message"
    name = name or _KINDS[kind]
    return name if name[0].isalpha() else f"{_KINDS[kind]}-{name}"


def named_items(
    items: list[dict[str, Any]], counts: dict[str, int] | None = None
) -> Iterator[tuple[str, dict[str, Any]]]:
    """All items with the names that `hierfit list` tells, in order."""
    counts = {} if counts is None else counts
    for item in items:
        name = _kind_name(item)
        counts[name] = counts.get(name, 0) + 1
        yield f"{name}-{counts[name]}", item
        if item["kind"] == "heading":
            yield from named_items(item["items"], counts)


class Item:
    """A heading, table, chart or message of a run."""

    def __init__(self, run: Run, name: str, content: dict[str, Any]) -> None:
        self._run = run
        self.name = name
        self.content = content

    @property
    def title(self) -> str:
        if self.content["kind"] == "chart":
            return self.content["picture"].get("title") or self.content["description"]
        return self.content["text" if self.content["kind"] == "message" else "title"]["text"]

    def __repr__(self) -> str:
        return f"<{self.content['kind']} {self.name}: {self.title}>"

    def _repr_html_(self) -> str:
        page = self._run.render("html", only=self.name, static=True).decode()
        inner = page[page.index("<main") : page.index("</main>")]
        inner = inner[inner.index(">") + 1 :]
        diagnostics = inner.find('<section class="diagnostics"')
        return _for_notebook(inner if diagnostics < 0 else inner[:diagnostics])


class Table(Item):
    """A table of a run."""

    def frame(self) -> Any:
        """The table as a pandas.DataFrame with figures at full precision."""
        return frame_of(self.content)


class Chart(Item):
    """A chart of a run."""

    def svg(self) -> str:
        return self._run.render("svg", only=self.name).decode()

    def png(self, scale: float | None = None) -> bytes:
        return self._run.render("png", only=self.name, scale=scale)

    def _repr_html_(self) -> str:
        svg = self.svg()
        return svg[svg.index("<svg") :]

    def _repr_svg_(self) -> str:
        return self._repr_html_()


_TOKENS = itertools.count(1)
_SWITCH = re.compile(r'<p class="switch">.*?</p>\s*', re.DOTALL)


def _for_notebook(html: str) -> str:
    """The item's element alone, with ids of its own, since a notebook may show an item twice."""
    token = f"hf{next(_TOKENS)}-"

    def renamed(match: re.Match[str]) -> str:
        name, _, value = match[0].partition('="')
        value = value[:-1]
        if name.strip() == "href":
            return f'{name}="#{token}{value[1:]}"' if value.startswith("#") else match[0]
        return f'{name}="{" ".join(token + part for part in value.split())}"'

    def in_tag(match: re.Match[str]) -> str:
        return re.sub(r'(?<=\s)(?:id|headers|href|for)="[^"]*"', renamed, match[0])

    return re.sub(r"<[a-z][^<>]*>", in_tag, _SWITCH.sub("", html)).strip()


T = TypeVar("T", bound=Item)


class Items(Mapping[str, T]):
    """Items by name. A KeyError lists the names that there are."""

    def __init__(self, items: dict[str, T]) -> None:
        self._items = items

    def __getitem__(self, name: str) -> T:
        try:
            return self._items[name]
        except KeyError:
            raise KeyError(f"there is no {name!r}; there are {', '.join(self._items) or 'none'}") from None

    def __iter__(self) -> Iterator[str]:
        return iter(self._items)

    def __len__(self) -> int:
        return len(self._items)

    def __repr__(self) -> str:
        return "\n".join(repr(item) for item in self._items.values())
