"""A run: two documents made into tables and charts, in memory."""

from __future__ import annotations

import json
import os
import threading
import weakref
from collections.abc import Sequence
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path
from typing import Any

from ..bridge.documents import documents_of
from ..bridge.xml import write_whole
from . import library
from .errors import DocumentError, HierfitError, document_error, saved_error
from .items import Chart, Item, Items, Table, named_items

LEVELS = {1: "information", 2: "warning", 3: "error"}
PICTURES = ("svg", "png")
ENDINGS = {"htm": "html", "txt": "text"}
RUN_SETTINGS = ("lang", "variables", "values", "templates")


@dataclass(frozen=True, slots=True)
class Diagnostic:
    """Something that the run noticed: `level` is "information", "warning" or "error", `place` document, line and
    column."""

    level: str
    text: str
    place: str | None

    def __str__(self) -> str:
        return f"{self.place}: {self.text}" if self.place else self.text


class Run:
    """What a run issued. `tables` and `charts` are by name, and `run[name]` is any item; it may be used by several
    threads, which take turns."""

    def __init__(self, handle: int, outcome: int) -> None:
        self._handle = handle
        self._turn = threading.Lock()
        self._free = weakref.finalize(self, library.free, handle)
        self._free.atexit = False
        self.outcome = outcome

    @cached_property
    def diagnostics(self) -> list[Diagnostic]:
        with self._turn:
            return [
                Diagnostic(LEVELS.get(level, str(level)), text, place)
                for level, text, place in library.diagnostics(self._handle)
            ]

    @cached_property
    def document(self) -> dict[str, Any]:
        """The whole output as docs/output-document.md describes it."""
        return json.loads(self.render("json"))

    @cached_property
    def items(self) -> Items[Item]:
        kinds = {"table": Table, "chart": Chart}
        return Items(
            {
                name: kinds.get(content["kind"], Item)(self, name, content)
                for name, content in named_items(self.document["items"])
            }
        )

    @cached_property
    def tables(self) -> Items[Table]:
        return Items({name: item for name, item in self.items.items() if isinstance(item, Table)})

    @cached_property
    def charts(self) -> Items[Chart]:
        return Items({name: item for name, item in self.items.items() if isinstance(item, Chart)})

    def __getitem__(self, name: str) -> Item:
        return self.items[name]

    def __repr__(self) -> str:
        return "\n".join(map(repr, self.items.values()))

    def _repr_html_(self) -> str:
        return "\n".join(item._repr_html_() for item in self.items.values() if isinstance(item, (Table, Chart)))

    def render(self, form: str, **settings: Any) -> bytes:
        """The report in a format of the program. `settings` are its long options for a format, such as title, author,
        static, charts, scale, only; "svg" and "png" hold the one chart that `only` names."""
        with self._turn:
            code, content = library.render(self._handle, form, settings)
            if code == library.OK:
                return content
            reason = library.error(self._handle) or f"{form} could not be made"
        if code == library.USAGE:
            raise ValueError(reason)
        raise DocumentError(reason) if code == library.UNREADABLE else HierfitError(reason)

    def save(self, path: str | os.PathLike[str], format: str | None = None, **settings: Any) -> Path:
        """Writes the report; the path's ending says the format unless `format` does. The file appears whole or not at
        all. For "svg" and "png" the path is a folder, which has a file for each chart."""
        target = Path(path)
        form = format or format_of(target)
        if form not in PICTURES:
            content = self.render(form, **settings)
            target.parent.mkdir(parents=True, exist_ok=True)
            write_whole(target, content)
            return target
        chosen = self.chosen_charts(settings.pop("only", None))
        target.mkdir(parents=True, exist_ok=True)
        for name in chosen:
            write_whole(target / f"{name}.{form}", self.render(form, only=name, **settings))
        return target

    def chosen_charts(self, only: str | Sequence[str] | None) -> list[str]:
        """Names of the charts that `only` chooses: a chart's, or without its number those of all charts of the kind."""
        if not only:
            return list(self.charts)
        names = [name.strip() for name in only.split(",")] if isinstance(only, str) else list(only)
        unknown = [name for name in names if not any(_is_called(chart, name) for chart in self.charts)]
        if unknown:
            raise ValueError(f"there is no chart {unknown[0]}; there are {', '.join(self.charts) or 'none'}")
        return [chart for chart in self.charts if any(_is_called(chart, name) for name in names)]


def _is_called(chart: str, name: str) -> bool:
    return name in (chart, chart.rpartition("-")[0])


def format_of(path: Path) -> str:
    ending = path.suffix.lstrip(".").lower()
    if not ending:
        raise ValueError(f"The ending of {path} says no format; name one by format=.")
    return ENDINGS.get(ending, ending)


# Making runs


def documents_in(source: Any) -> tuple[Path, Path] | None:
    """The paths of a folder's documents, or of a pair; None for anything else."""
    if isinstance(source, (str, os.PathLike)):
        folder = Path(source)
        return folder / "model.pmml", folder / "model.statxml"
    if (
        isinstance(source, (tuple, list))
        and len(source) == 2
        and all(isinstance(x, (str, os.PathLike)) for x in source)
    ):
        return Path(source[0]), Path(source[1])
    return None


def run_documents(pmml: bytes, statxml: bytes, names: tuple[str, str], **settings: Any) -> Run:
    """Runs two documents. DocumentError for one that cannot be read; HierfitError for an installation that lacks a
    part."""
    short = {"pmml": os.path.basename(names[0]), "statxml": os.path.basename(names[1])}
    made = Run(*library.start(pmml, statxml, {**settings, **short}))
    _check(made, {short["pmml"]: names[0], short["statxml"]: names[1]})
    return made


def _check(made: Run, names: dict[str, str]) -> None:
    if made.outcome == library.OK:
        return
    reason = library.error(made._handle) or "The documents could not be read."
    if made.outcome != library.UNREADABLE:
        raise HierfitError(reason)
    placed = [d for d in made.diagnostics if d.level == "error" and d.place] or [d for d in made.diagnostics if d.place]
    raise document_error(placed[0].text, placed[0].place, names) if placed else DocumentError(reason)


def run(source: Any, statxml: str | os.PathLike[str] | None = None, **options: Any) -> Run:
    """A run of a folder with model.pmml and model.statxml, of a pair of paths, or of a fit, without files.

    `options` are the program's for a run (lang, variables, values, templates) and, for a fit, those of
    hierfit.documents().
    """
    settings = {name: options.pop(name) for name in RUN_SETTINGS if name in options}
    paths = documents_in(source if statxml is None else (source, statxml))
    if paths is None:
        pmml_text, statxml_text = documents_of(source, **options)
        return run_documents(pmml_text.encode(), statxml_text.encode(), ("model.pmml", "model.statxml"), **settings)
    if options:
        raise TypeError(f"{', '.join(options)}: documents take no such option, only {', '.join(RUN_SETTINGS)}")
    return run_documents(paths[0].read_bytes(), paths[1].read_bytes(), (str(paths[0]), str(paths[1])), **settings)


def report(
    source: Any,
    path: str | os.PathLike[str],
    *,
    format: str | None = None,
    title: str | None = None,
    author: str | None = None,
    static: bool | None = None,
    charts: bool | None = None,
    scale: float | None = None,
    only: str | Sequence[str] | None = None,
    **options: Any,
) -> Path:
    """Writes the report of what run() takes; returns its path, whose ending says the format."""
    if format is None and not Path(path).suffix:
        raise ValueError(f"The ending of {path} says no format; name one by format=.")
    return run(source, **options).save(
        path, format, title=title, author=author, static=static, charts=charts, scale=scale, only=only
    )


def read(path: str | os.PathLike[str]) -> Run:
    """A run that was saved as JSON."""
    made = Run(*library.start_from_json(Path(path).read_bytes()))
    if made.outcome == library.UNREADABLE:
        raise saved_error(library.error(made._handle) or "it is no saved run", str(path))
    if made.outcome != library.OK:
        raise HierfitError(library.error(made._handle) or f"{path} could not be read")
    return made
