#!/usr/bin/env python3
"""Takes the sample through installation, declaration, refused lines and print-outs with the programs of this system and
with those for Windows under Wine, and fails over whatever comes out otherwise: usage: windows_sample.py NATIVE WINDOWS,
the folders of the programs. scripts/windows sets up Wine and runs it.

Tables are compared row by row, logs and lists byte by byte but for the ends of lines, PDFs by their text, answers and
exit codes as they are. Paths differ, and are made alike first, and so does the user's name.
"""

import contextlib
import os
import pathlib
import platform
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLE = "20990518018"
KINDS = (".Log", ".Err", ".csv", ".pdf", ".PRN")  # of what has to come out at all
USER = "USUARIO"
COMPANY = "Peña & Añaños"  # letters and signs that a folder's name may have


class System:
    """One system's programs, with the folder that they install to and another for what they write."""

    def __init__(self, name, programs, folder, installed, environment):
        self.name = name
        self.results = {}
        self._programs = pathlib.Path(programs).resolve()
        self._folder = folder
        self.installed = installed
        self._environment = environment
        folder.mkdir(parents=True)

    def _command(self, program):
        return [str(self._programs / program)]

    def path(self, path):
        """How the programs are told of a path."""
        return str(path)

    def user(self):
        return USER

    def works(self):
        self.runs("install", "consola", "--instalar", "--carpeta", self.path(self.installed), "--ejemplo")
        sample, out = self.path(self.installed / "EJEMPLO"), self.path(self._folder)
        month = ["--ruc", SAMPLE, "--periodo", "202609", "--hoy", "15/10/2026"]
        self.runs("declare", "xa518-lote", "declarar", *month, "--percepciones", sample, "--ventas", sample, "--efectivo",
                  "--pdf", out, "--json")
        self.runs("print", "xa518-lote", "imprimir", *month, "--anexos", "--pdf", out + "/ñandú.pdf")
        self.runs("validate", "xa518-lote", "validar", *month)
        self.runs("faults", "xa518-lote", "importar", "--ruc", SAMPLE, "--periodo", "202610", "--hoy", "15/11/2026",
                  "--percepciones", sample, "--errores", out + "/errores.csv")
        self.runs("back up", "consola", "--respaldar")
        copy = max((self.installed / "RESPALDOS").iterdir(), default=self.installed)
        self.runs("send", "consola", "--enviar", SAMPLE, "202609")
        self._takes_tables("sent")
        self.runs("restore", "consola", "--restaurar", self.path(copy))
        self.runs("list", "xa518-lote", "listar")
        self.runs("format", "xa518-lote", "--formato")
        self._takes_files()
        self._takes_tables("restored")

    def runs(self, what, program, *arguments):
        done = subprocess.run(self._command(program) + list(arguments), env=os.environ | self._environment,
                              capture_output=True, timeout=300, check=False)
        text = (done.stdout + done.stderr).decode().replace("\r\n", "\n")
        self.results[f"{what}: exit code"] = done.returncode
        self.results[f"{what}: answer"] = self._alike(text).splitlines()

    def _alike(self, text):
        """A text without the system's paths, the person's name, and what no two runs have alike."""
        text = text.replace("\\\\", "/").replace("\\", "/")
        text = re.sub(r"(?<=: )\S*XA000\.INI", "INI", text)  # Windows is asked for the file by its bare name
        text = re.sub(r"XA000-\d{8}-\d{6}", "XA000-MOMENT", text)
        if text.lower() == platform.node().lower():  # Windows may spell it in capitals
            return "MACHINE"
        text = re.sub(r"^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d$", "MOMENT", text)
        text = re.sub(r"^[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}$", "MARK", text)
        for path, name in ((self.installed, "INSTALLED"), (self._folder, "FOLDER")):
            text = re.sub(re.escape(self.path(path).replace("\\", "/")), name, text, flags=re.I)
        return text.replace(self.user(), USER)

    def _takes_files(self):
        for folder in (self.installed, self._folder):
            for file in sorted(path for path in folder.rglob("*") if path.is_file()):
                name = self._alike(file.name)
                if file.suffix == ".pdf":
                    pages = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True)
                    self.results[name] = self._alike(pages.stdout).splitlines()
                elif file.suffix not in (".DB", ".MDW", ".hlp"):  # the tables follow; keys and help are no text
                    self.results[name] = file.read_bytes().replace(b"\r\n", b"\n").split(b"\n")

    def _takes_tables(self, when):
        with contextlib.closing(sqlite3.connect(self.installed / "XA000.DB")) as base:
            names = [name for name, in base.execute("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")]
            for name in names:
                rows = base.execute(f'SELECT * FROM "{name}"').fetchall()
                self.results[f"table {name}, {when}"] = [
                    tuple(self._alike(value) if isinstance(value, str) else value for value in row) for row in rows]


class Wine(System):
    def _command(self, program):
        return [str(ROOT / "scripts/wine"), str(self._programs / f"{program}.exe")]

    def path(self, path):
        drive = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"
        return f"C:/{path.relative_to(drive)}" if path.is_relative_to(drive) else f"Z:{path}"

    def user(self):
        return next(name for name in os.listdir(pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c/users") if name != "Public")


def systems(native, windows, folder):
    home = folder / "native"
    yield System("here", native, home / "out", home / COMPANY,
                 {"HOME": str(home), "XDG_CONFIG_HOME": "", "XDG_DATA_HOME": "", "USER": USER, "LC_ALL": "C.UTF-8", "TZ": "UTC"})
    drive = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"
    ini = drive / "windows/XA000.INI"
    ini.unlink(missing_ok=True)
    shutil.rmtree(drive / COMPANY, ignore_errors=True)
    yield Wine("under Wine", windows, folder / "wine", drive / COMPANY, {"LC_ALL": "C.UTF-8", "TZ": "UTC"})


def differences(here, there):
    for name in sorted(here.results.keys() | there.results.keys()):
        one, other = here.results.get(name), there.results.get(name)
        if one == other:
            continue
        if isinstance(one, list) and isinstance(other, list):
            pairs = [(a, b) for a, b in zip(one + [None] * len(other), other + [None] * len(one)) if a != b]
            yield f"{name}: {len(pairs)} of {len(one)} differ, the first one:\n  {pairs[0][0]}\n  {pairs[0][1]}"
        else:
            yield f"{name}: {one if one is None else str(one)[:200]} here, {other if other is None else str(other)[:200]} there"


def main():
    with tempfile.TemporaryDirectory() as folder:
        here, there = systems(sys.argv[1], sys.argv[2], pathlib.Path(folder))
        here.works()
        there.works()
        faults = list(differences(here, there))
        done = {"faults: exit code": 1}  # its lines are refused; all else is done
        faults += [f"{name}: {code}" for name, code in here.results.items()
                   if name.endswith("exit code") and code != done.get(name, 0)]
        faults += [f"no {kind}" for kind in KINDS if not any(name.endswith(kind) for name in here.results)]
        rows = sum(len(rows) for name, rows in here.results.items() if name.startswith("table "))
        tables = sum(name.startswith("table ") for name in here.results)
        print(*faults, sep="\n")
        print(f"{len(here.results)} results compared, {tables} tables with {rows} rows among them; {len(faults)} differ.")
        return 1 if faults or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
