"""Reports of many models, in threads of this process or over a cluster of Dask."""

from __future__ import annotations

import os
import warnings
from collections.abc import Iterable, Iterator
from concurrent.futures import FIRST_COMPLETED, ThreadPoolExecutor, wait
from dataclasses import dataclass, field
from html.parser import HTMLParser
from pathlib import Path
from typing import Any

from ..bridge.xml import write_whole
from ..needs import need
from .program import find_program, run_program
from .run import PICTURES, RUN_SETTINGS, documents_in, run_documents

INDEX = "index.html"
FILE_ENDINGS = {"html": ".html", "text": ".txt", "json": ".json"}
RETRIES = 3  # of a model whose worker died
TASKS_A_THREAD = 3  # under way at once, so that documents wait on disk and not in the scheduler


@dataclass(frozen=True, slots=True)
class Model:
    """A model of a batch: the folder by which the index knows it, its two documents, and the name of its report."""

    folder: Path
    pmml: Path
    statxml: Path
    report: str


@dataclass(slots=True)
class Outcome:
    """What became of many models: reports that were written, those that were there, and why others are missing, by the
    folder of the documents."""

    written: list[Path] = field(default_factory=list)
    skipped: list[Path] = field(default_factory=list)
    failures: dict[str, str] = field(default_factory=dict)
    index: Path | None = None


Files = list[tuple[str, bytes]]  # names below the model's report, "" for the report itself, and contents
Result = tuple[Files, str | None]  # or why there are none


def map_models(
    models: Iterable[Any],
    out: str | os.PathLike[str],
    client: Any = None,
    format: str = "html",
    force: bool = False,
    **settings: Any,
) -> Outcome:
    """Writes a report for each model, and index.html, into the folder `out`.

    `models` are folders with model.pmml and model.statxml, or pairs of paths. Reports bear their folder's last name;
    those that are newer than their documents are kept unless `force`. With a `client`, a distributed.Client,
    documents go to the workers and reports come back, so workers need no folder in common with this process; a worker
    that dies has its models run again by others. Without one they run in threads here. A model that fails is in the
    outcome's `failures`, and a warning tells. The index is written by the program, found by the variable HIERFIT,
    beside the library, or on the path. `settings` are the program's options for runs and formats.
    """
    folder = Path(out)
    folder.mkdir(parents=True, exist_ok=True)
    ending = "" if format in PICTURES else FILE_ENDINGS.get(format, f".{format}")
    listed = _list_models(models, folder, ending)
    outcome = Outcome()
    known = _indexed(folder / INDEX)
    to_do = []
    for model in listed:
        if not force and _is_there(model, folder, known):
            outcome.skipped.append(folder / model.report)
        else:
            to_do.append(model)
    results = _in_threads(to_do, format, settings) if client is None else _over_cluster(client, to_do, format, settings)
    for model, (files, reason) in results:
        if reason is None:
            try:
                _write(folder / model.report, files)
                outcome.written.append(folder / model.report)
            except OSError as error:
                reason = str(error)
        if reason is not None:
            outcome.failures[str(model.folder)] = " ".join(reason.split())
    if outcome.failures:
        told = "; ".join(f"{name}: {reason}" for name, reason in list(outcome.failures.items())[:10])
        warnings.warn(
            f"{len(outcome.failures)} of {len(listed)} models have no report: {told}", UserWarning, stacklevel=2
        )
    outcome.index = _write_index(listed, folder, format, settings)
    return outcome


# Models


def _list_models(given: Iterable[Any], out: Path, ending: str) -> list[Model]:
    """Sorted by their folders, each once. Where a name is taken, -2, -3, ... stand behind it, as the program has it."""
    if isinstance(given, (str, os.PathLike)) or not isinstance(given, Iterable):
        raise TypeError(f"Models are a list of folders or of pairs of paths; not {given!r}.")
    pairs: dict[tuple[str, str], tuple[Path, Path]] = {}
    for source in given:
        paths = documents_in(source)
        if paths is None:
            raise TypeError(f"A model is a folder or a pair of paths; not {source!r}.")
        pairs[os.path.abspath(paths[0]), os.path.abspath(paths[1])] = paths
    folders = sorted(
        ((_folder_of(*paths, out), *paths) for paths in pairs.values()), key=lambda model: os.fsencode(model[0])
    )
    taken = {INDEX}
    numbers: dict[str, int] = {}
    models: list[Model] = []
    for folder, pmml, statxml in folders:
        base = os.path.basename(os.path.abspath(folder)) or "root"
        name = base + ending
        while name in taken:
            numbers[base] = numbers.get(base, 1) + 1
            name = f"{base}-{numbers[base]}{ending}"
        taken.add(name)
        models.append(Model(folder, pmml, statxml, name))
    return models


def _folder_of(pmml: Path, statxml: Path, out: Path) -> Path:
    """The documents' folder. A pair of other names, or of two folders, gets one with links to both."""
    if pmml.parent == statxml.parent and (pmml.name, statxml.name) == ("model.pmml", "model.statxml"):
        return pmml.parent
    base = out / ".documents"
    number, name = 1, pmml.stem
    while True:
        folder = base / (name if number == 1 else f"{name}-{number}")
        links = {folder / "model.pmml": pmml.resolve(), folder / "model.statxml": statxml.resolve()}
        if not folder.exists() or all(os.path.realpath(link) == str(target) for link, target in links.items()):
            break
        number += 1
    folder.mkdir(parents=True, exist_ok=True)
    for link, target in links.items():
        if not link.is_symlink():
            link.symlink_to(target)
    return folder


class _IndexRows(HTMLParser):
    """The folder that the index knows for each report."""

    def __init__(self) -> None:
        super().__init__()
        self.folders: dict[str, str] = {}

    def handle_starttag(self, tag: str, attrs: list[tuple[str, str | None]]) -> None:
        values = dict(attrs)
        if "data-report" in values and "data-folder" in values:
            self.folders[values["data-report"] or ""] = values["data-folder"] or ""


def _indexed(index: Path) -> dict[str, str]:
    rows = _IndexRows()
    if index.is_file():
        rows.feed(index.read_text("utf-8", "replace"))
    return rows.folders


def _is_there(model: Model, out: Path, known: dict[str, str]) -> bool:
    """Whether the report is newer than its documents, and no other model's."""
    report = out / model.report
    try:
        time = report.stat().st_mtime_ns
        if any(document.stat().st_mtime_ns >= time for document in (model.pmml, model.statxml)):
            return False
    except OSError:
        return False
    folder = known.get(model.report)
    return folder is None or os.path.abspath(out / folder) == os.path.abspath(model.folder)


# Work


def render_model(pmml: bytes, statxml: bytes, names: tuple[str, str], form: str, settings: dict[str, Any]) -> Result:
    """A model's report, on whatever machine this runs."""
    of_run = {name: value for name, value in settings.items() if name in RUN_SETTINGS}
    of_format = {name: value for name, value in settings.items() if name not in RUN_SETTINGS}
    try:
        run = run_documents(pmml, statxml, names, **of_run)
        if form in PICTURES:
            chosen = run.chosen_charts(of_format.pop("only", None))
            return [(f"{name}.{form}", run.render(form, only=name, **of_format)) for name in chosen], None
        return [("", run.render(form, **of_format))], None
    except (ValueError, RuntimeError, MemoryError) as error:
        return [], str(error) or type(error).__name__


def _read(model: Model) -> tuple[bytes, bytes, tuple[str, str]] | str:
    try:
        return (model.pmml.read_bytes(), model.statxml.read_bytes(), (str(model.pmml), str(model.statxml)))
    except OSError as error:
        return f"{error.filename}: {error.strerror}"


def _in_threads(models: list[Model], form: str, settings: dict[str, Any]) -> Iterator[tuple[Model, Result]]:
    def work(model: Model) -> Result:
        documents = _read(model)
        return ([], documents) if isinstance(documents, str) else render_model(*documents, form, settings)

    threads = os.cpu_count() or 1
    with ThreadPoolExecutor(threads) as pool:
        under_way: dict[Any, Model] = {}
        rest = iter(models)
        try:
            while True:
                while len(under_way) < TASKS_A_THREAD * threads and (model := next(rest, None)) is not None:
                    under_way[pool.submit(work, model)] = model
                if not under_way:
                    return
                for done in wait(under_way, return_when=FIRST_COMPLETED).done:
                    yield under_way.pop(done), done.result()
        finally:
            for future in under_way:
                future.cancel()


def _over_cluster(
    client: Any, models: list[Model], form: str, settings: dict[str, Any]
) -> Iterator[tuple[Model, Result]]:
    distributed = need("distributed", "A cluster")
    rest = iter(models)
    under_way: dict[Any, Model] = {}
    completed = distributed.as_completed()

    def submit_next() -> Iterator[tuple[Model, Result]]:
        """Submits one model; gives those before it that cannot be read."""
        for model in rest:
            documents = _read(model)
            if isinstance(documents, str):
                yield model, ([], documents)
                continue
            future = client.submit(render_model, *documents, form, settings, pure=False, retries=RETRIES)
            under_way[future] = model
            completed.add(future)
            return

    try:
        threads = max(1, sum(client.nthreads().values()))
        for _ in range(TASKS_A_THREAD * threads):
            yield from submit_next()
        for future in completed:
            yield under_way.pop(future), _result_of(future)
            yield from submit_next()
    finally:
        for future in under_way:
            future.cancel()


def _result_of(future: Any) -> Result:
    try:
        return future.result()
    except Exception as error:  # of the cluster, such as a model whose workers died again and again
        return [], f"the cluster gave it up: {str(error) or type(error).__name__}"


def _write(report: Path, files: Files) -> None:
    for name, content in files:
        if name:
            report.mkdir(parents=True, exist_ok=True)
            write_whole(report / name, content)
        else:
            write_whole(report, content)


# Index


def _write_index(models: list[Model], out: Path, form: str, settings: dict[str, Any]) -> Path | None:
    """By the program, which finds the reports there and adds what the index tells of them."""
    program = find_program()
    if program is None:
        reason = "the program hierfit is not found; say where it is by the variable HIERFIT"
    else:
        options = [
            f"--{name}" if value is True else f"--{name}={value}"
            for name, value in settings.items()
            if value is not None and value is not False
        ]
        folders = "".join(f"{os.path.abspath(model.folder)}\n" for model in models)
        status, said = run_program(program, ["batch", "-o", str(out), "-f", form, *options], folders)
        if status in (0, 2) and (out / INDEX).is_file():
            return out / INDEX
        reason = said or f"the program ended with status {status}"
    warnings.warn(f"{INDEX} was not written: {reason}", UserWarning, stacklevel=3)
    return None
