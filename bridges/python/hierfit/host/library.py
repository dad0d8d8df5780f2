"""The shared library, through its interface for C. Calls release the interpreter's lock."""

from __future__ import annotations

import ctypes
import os
import sys
import sysconfig
import threading
from collections.abc import Iterator, Mapping
from contextlib import contextmanager
from ctypes import POINTER, byref, c_char_p, c_int, c_size_t, c_void_p
from pathlib import Path
from typing import Any

from .errors import HierfitError

NAME = "libhierfit_host.so"
NAMES = (NAME + ".0", NAME)  # without headers there is the first alone

OK, USAGE, UNREADABLE, UNWRITABLE, MISSING = range(5)

_FUNCTIONS: dict[str, tuple[Any, list[Any]]] = {
    "hf_version": (c_char_p, []),
    "hf_settings_new": (c_void_p, []),
    "hf_settings_set": (c_int, [c_void_p, c_char_p, c_char_p]),
    "hf_settings_error": (c_char_p, [c_void_p]),
    "hf_settings_free": (None, [c_void_p]),
    "hf_run": (c_int, [c_char_p, c_size_t, c_char_p, c_size_t, c_void_p, POINTER(c_void_p)]),
    "hf_read_json": (c_int, [c_char_p, c_size_t, POINTER(c_void_p)]),
    "hf_outcome": (c_int, [c_void_p]),
    "hf_diagnostic_count": (c_size_t, [c_void_p]),
    "hf_diagnostic": (c_int, [c_void_p, c_size_t, POINTER(c_int), POINTER(c_char_p), POINTER(c_char_p)]),
    "hf_error": (c_char_p, [c_void_p]),
    "hf_render": (c_int, [c_void_p, c_char_p, c_void_p, POINTER(c_void_p), POINTER(c_size_t)]),
    "hf_free": (None, [c_void_p]),
    "hf_run_free": (None, [c_void_p]),
}


def candidates() -> Iterator[str]:
    """Where the library may be: the variable HIERFIT_LIBRARY alone where it is set; else beside the prefix that this
    package is installed in, Python's own prefix, and the loader's path."""
    given = os.environ.get("HIERFIT_LIBRARY")
    if given:
        yield given
        return
    folders = ["lib", "lib64", os.path.join("lib", sysconfig.get_config_var("MULTIARCH") or "")]
    for prefix in [*Path(__file__).resolve().parents, Path(sys.prefix)]:
        for folder in folders:
            yield from (str(path) for path in (prefix / folder / name for name in NAMES) if path.is_file())
    yield from NAMES


def _open() -> ctypes.CDLL:
    reasons = []
    for path in candidates():
        try:
            library = ctypes.CDLL(path)
            for name, (result, arguments) in _FUNCTIONS.items():
                function = getattr(library, name)
                function.restype, function.argtypes = result, arguments
            return library
        except (OSError, AttributeError) as error:
            reasons.append(str(error))
    raise HierfitError(
        f"The library {NAME} is not found ({'; '.join(reasons)}). Say where it is by the variable HIERFIT_LIBRARY."
    )


_lock = threading.Lock()
_library: ctypes.CDLL | None = None


def library() -> ctypes.CDLL:
    global _library
    with _lock:
        if _library is None:
            _library = _open()
        return _library


def version() -> str:
    """The library's version, such as "0.1.0"."""
    return library().hf_version().decode()


def _text(value: Any) -> str:
    if isinstance(value, bool):
        return "true" if value else "false"
    return str(value) if isinstance(value, (str, os.PathLike, int, float)) else ",".join(map(str, value))


@contextmanager
def settings_of(values: Mapping[str, Any]) -> Iterator[int]:
    """Settings for one call: the program's long options. ValueError for one that is wrong."""
    lib = library()
    settings = lib.hf_settings_new()
    if not settings:
        raise MemoryError("no memory for settings")
    try:
        for key, value in values.items():
            if value is None:
                continue
            text = _text(value)
            if "\0" in text:
                raise ValueError(f"{key}: a zero byte cannot stand in a setting")
            if lib.hf_settings_set(settings, key.encode(), text.encode("utf-8", "surrogateescape")) != OK:
                raise ValueError((lib.hf_settings_error(settings) or b"").decode("utf-8", "replace"))
        yield settings
    finally:
        lib.hf_settings_free(settings)


def start(pmml: bytes, statxml: bytes, values: Mapping[str, Any]) -> tuple[int, int]:
    """A run and its outcome."""
    lib, run = library(), c_void_p()
    with settings_of(values) as settings:
        outcome = lib.hf_run(pmml, len(pmml), statxml, len(statxml), settings, byref(run))
    return _started(run, outcome)


def start_from_json(text: bytes) -> tuple[int, int]:
    lib, run = library(), c_void_p()
    return _started(run, lib.hf_read_json(text, len(text), byref(run)))


def _started(run: c_void_p, outcome: int) -> tuple[int, int]:
    if not run.value:
        raise MemoryError("no memory for a run")
    return run.value, outcome


def diagnostics(run: int) -> Iterator[tuple[int, str, str | None]]:
    """Level, text and place of each."""
    lib = library()
    level, text, place = c_int(), c_char_p(), c_char_p()
    for number in range(lib.hf_diagnostic_count(run)):
        if lib.hf_diagnostic(run, number, byref(level), byref(text), byref(place)) == OK:
            yield (
                level.value,
                (text.value or b"").decode("utf-8", "replace"),
                None if place.value is None else place.value.decode("utf-8", "replace"),
            )


def error(run: int) -> str | None:
    text = library().hf_error(run)
    return None if text is None else text.decode("utf-8", "replace")


def render(run: int, form: str, values: Mapping[str, Any]) -> tuple[int, bytes]:
    """A code, and what was rendered."""
    lib, data, size = library(), c_void_p(), c_size_t()
    with settings_of(values) as settings:
        code = lib.hf_render(run, form.encode(), settings, byref(data), byref(size))
    if code != OK or not data.value:
        return code, b""
    try:
        return code, ctypes.string_at(data.value, size.value)
    finally:
        lib.hf_free(data)


def free(run: int) -> None:
    library().hf_run_free(run)
