"""The program hierfit, for what the library does not do."""

from __future__ import annotations

import os
import shutil
import subprocess
from collections.abc import Sequence
from pathlib import Path

from .library import candidates


def find_program() -> str | None:
    """The variable HIERFIT, the bin folder beside the library, or the path."""
    given = os.environ.get("HIERFIT")
    if given:
        return given
    for library in filter(os.path.isabs, candidates()):
        for prefix in list(Path(library).parents)[1:3]:
            program = prefix / "bin" / "hierfit"
            if os.access(program, os.X_OK):
                return str(program)
    return shutil.which("hierfit")


def run_program(program: str, arguments: Sequence[str], given: str) -> tuple[int, str]:
    """Exit status, and what was said on standard error."""
    try:
        done = subprocess.run(
            [program, *arguments], input=given.encode("utf-8", "surrogateescape"), capture_output=True, check=False
        )
    except OSError as error:
        return 4, str(error)
    return done.returncode, done.stderr.decode("utf-8", "replace").strip()
