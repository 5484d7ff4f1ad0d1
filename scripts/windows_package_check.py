#!/usr/bin/env python3
"""Tries the installer and the ZIP of the Windows programs under Wine, in a Windows folder of its own, and fails over whatever
comes out otherwise than meant: usage: windows_package_check.py OLDER NEWER, the folders that scripts/windows-package filled.

Installed in silence for one user, the sample's month worked by what was installed, refused while a program is open, updated
over the older version, removed: what the person has stays to the byte, and nothing of the programs does. Then for all users,
and from the ZIP. scripts/windows package-check runs it.
"""

import hashlib
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time
import zipfile

WINE = "/usr/lib/wine/"
SAMPLE = "20990518018"
NAME = "Consola de presentaciones"
REGISTRY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\xa518"
REFUSED = 2


class Windows:
    """A fresh Windows folder; programs find in it only what they brought."""

    def __init__(self, folder):
        self._environment = {"HOME": os.environ["HOME"], "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "TZ": "UTC",
                             "WINEPREFIX": str(folder), "WINEARCH": "win64", "WINEDEBUG": "-all"}
        self.drive = folder / "drive_c"
        folder.mkdir()
        subprocess.run([WINE + "wine64", "wineboot", "-i"], env=self._environment | {"WINEDLLOVERRIDES": "mscoree,mshtml="},
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        self._server("-w")
        self._server("-p")  # kept: each start is then quick
        # what the server starts beside the first program would hold that one's output open
        subprocess.run(self._command("cmd", ["/c", "exit"]), env=self._environment, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        self.runs("winecfg", "/v", "win10")  # Wine says otherwise that it is an older one
        person = next(path for path in (self.drive / "users").iterdir() if path.name != "Public")
        local, menu = person / "AppData/Local", "Microsoft/Windows/Start Menu/Programs"
        self.data = local / "xa518"
        self.ini = self.drive / "windows/XA000.INI"
        self.own = (local / "Programs" / NAME, person / "AppData/Roaming" / menu / NAME, "HKCU")
        self.shared = (self.drive / "Program Files" / NAME, self.drive / "ProgramData" / menu / NAME, "HKLM")

    def _server(self, option):
        subprocess.run([WINE + "wineserver64", option], env=self._environment, check=False)

    def ends(self):
        self._server("-k")

    def _command(self, program, arguments):
        return [WINE + "wine64", str(program), *map(str, arguments)]

    def runs(self, program, *arguments):
        """The exit code, and what the program wrote."""
        done = subprocess.run(self._command(program, arguments), env=self._environment, capture_output=True, timeout=300,
                              stdin=subprocess.DEVNULL, check=False)
        return done.returncode, (done.stdout + done.stderr).decode(errors="replace")

    def starts(self, program):
        """A program with windows that stays, on no screen."""
        return subprocess.Popen(self._command(program, []), env=self._environment | {"QT_QPA_PLATFORM": "offscreen"},
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def registered(self, root, value):
        code, text = self.runs("reg", "query", rf"{root}\{REGISTRY}", "/v", value)
        found = re.search(rf"{value}\s+REG_\w+\s+(.*?)\r?\n", text)
        return found[1] if code == 0 and found else None


def contents(folder):
    return {str(path.relative_to(folder)): hashlib.sha256(path.read_bytes()).hexdigest()
            for path in sorted(folder.rglob("*")) if path.is_file()}


def holds(what, is_so, told=""):
    if not is_so:
        sys.exit(f"{what}: not so. {told}")
    print(f"  {what}", flush=True)


class Package:
    """What scripts/windows-package made."""

    def __init__(self, folder):
        self.installer = next(folder.glob("*-instalador.exe"))
        self.archive = next(folder.glob("*-portatil.zip"))
        self.files = contents(folder / "xa518")
        self.version = re.search(r"-([\d.]+)-", self.installer.name)[1]


def is_installed(windows, place, package):
    folder, menu, root = place
    found = contents(folder) if folder.exists() else {}
    holds("the programs are there, all of them and whole", package.files.items() <= found.items(),
          sorted(package.files.keys() - found.keys()))
    holds(f"the system knows version {package.version}", windows.registered(root, "DisplayVersion") == package.version)
    holds("the start menu has them", sorted(path.name for path in menu.glob("*.lnk")) ==
          [f"{NAME}.lnk", "Desinstalar.lnk", "Léame.lnk"], list(menu.glob("*")))


def works_a_month(windows, programs):
    code, text = windows.runs(programs / "consola.exe", "--instalar", "--ejemplo")
    holds("the installed launcher makes a base", code == 0, text)
    sample = windows.data / "EJEMPLO"
    code, text = windows.runs(programs / "xa518-lote.exe", "declarar", "--ruc", SAMPLE, "--periodo", "202609", "--hoy", "15/10/2026",
                              "--percepciones", f"Z:{sample}", "--efectivo", "--pdf", f"Z:{windows.data / 'PDF'}")
    holds("a month is imported, saved and printed", code == 0 and list((windows.data / "PDF").glob("*.pdf")), text)


def lists_the_month(windows, programs):
    code, text = windows.runs(programs / "xa518-lote.exe", "listar")
    holds("the month is there", code == 0 and f"{SAMPLE}  202609" in text, text)


def refuses_while_open(windows, place, older, newer):
    program = windows.starts(place[0] / "consola.exe")
    try:
        time.sleep(5)
        code, _ = windows.runs(newer.installer, "/S")
        holds("with the launcher open the update is refused, and nothing is touched",
              code == REFUSED and older.files.items() <= contents(place[0]).items(), f"exit code {code}")
    finally:
        windows.runs("taskkill", "/F", "/IM", "consola.exe")
        program.wait(60)


def remove(windows, place):
    """As the system's list of programs does: the uninstaller returns at once and goes on in a copy of itself."""
    folder, menu, root = place
    program, options = re.fullmatch('"(.*)" (.*)', windows.registered(root, "QuietUninstallString")).groups()
    code, text = windows.runs(program, *options.split())
    holds("the uninstaller starts", code == 0, text)
    limit = time.monotonic() + 60
    while (folder / "desinstalar.exe").exists() or menu.exists():
        holds("it ends", time.monotonic() < limit)
        time.sleep(0.2)
    holds("the system knows nothing of the programs", windows.registered(root, "DisplayVersion") is None)


def life_for_one_user(windows, older, newer):
    place = windows.own
    code, _ = windows.runs(older.installer, "/S", "/CurrentUser")
    holds(f"version {older.version} installs for one user", code == 0, code)
    is_installed(windows, place, older)
    works_a_month(windows, place[0])
    (place[0] / "suyo.txt").write_text("of the person")
    data = contents(windows.data) | {"ini": windows.ini.read_bytes()}
    refuses_while_open(windows, place, older, newer)

    code, _ = windows.runs(newer.installer, "/S")
    holds(f"version {newer.version} installs over it, for the same user", code == 0, code)
    is_installed(windows, place, newer)
    holds("of the older one nothing is left", contents(place[0]).keys() - newer.files.keys() == {"desinstalar.exe", "suyo.txt"})
    lists_the_month(windows, place[0])

    remove(windows, place)
    holds("the person's own file is all that its folder holds", list(contents(place[0])) == ["suyo.txt"])
    holds("the data are as they were, to the byte", contents(windows.data) | {"ini": windows.ini.read_bytes()} == data)


def life_for_all(windows, newer):
    code, _ = windows.runs(newer.installer, "/S", "/AllUsers")
    holds("it installs for all users", code == 0, code)
    is_installed(windows, windows.shared, newer)
    lists_the_month(windows, windows.shared[0])
    remove(windows, windows.shared)
    holds("its folder is gone", not windows.shared[0].exists())


def life_from_the_zip(windows, newer):
    folder = windows.drive / "Peña & Añaños"
    with zipfile.ZipFile(newer.archive) as archive:
        archive.extractall(folder)
    holds("the ZIP holds the same programs", contents(folder / "xa518") == newer.files)
    lists_the_month(windows, folder / "xa518")


def main():
    older, newer = (Package(pathlib.Path(folder)) for folder in sys.argv[1:3])
    with tempfile.TemporaryDirectory() as folder:
        windows = Windows(pathlib.Path(folder) / "wine")
        try:
            life_for_one_user(windows, older, newer)
            life_for_all(windows, newer)
            life_from_the_zip(windows, newer)
        finally:
            windows.ends()
    print("Installer and ZIP hold, under Wine.")


if __name__ == "__main__":
    main()
