"""What an office program shows of workbooks."""

import csv
import shutil
import subprocess


def convert(files, work):
    """Opens all files with the office program and saves what it shows; whether there is one."""
    if not shutil.which("soffice"):
        return False
    form = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false,true,false,false,-1"
    subprocess.run(["soffice", "--headless", f"-env:UserInstallation=file://{work}/profile", "--convert-to", form,
                    "--outdir", str(work), *map(str, files)], check=True, capture_output=True, timeout=500)
    return True


def read(work, stem):
    """The rows of each sheet of a file that was converted, by the sheet's name."""
    start = f"{stem}-"
    return {path.stem[len(start):]: list(csv.reader(path.open(encoding="utf-8", newline="")))
            for path in work.glob(f"{start}*.csv")}
