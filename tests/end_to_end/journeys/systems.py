"""Where the journeys' programs run: how they are started there, and how they are told of a file."""

import os
import pathlib
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[3]
WINDOWS = {"Program Files", "Program Files (x86)", "ProgramData", "users", "windows"}


class Here:
    """The programs of this system, with their profile file and all else in the journey's folder."""

    loses_keyboard = False

    def __init__(self, programs, folder):
        self._programs = pathlib.Path(programs).resolve()
        self.data = folder / "xa"  # where the installation goes
        self.environment = {"XDG_CONFIG_HOME": str(folder / "config"), "XDG_RUNTIME_DIR": str(folder),
                            "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8"}

    def command(self, program):
        return [str(self._programs / program)]

    def path(self, path):
        """How a person names a file to the programs."""
        return str(path)

    def ends(self):
        """Whatever the programs may have left running."""


class Wine(Here):
    """Programs for Windows, on a system of the journey's own: it knows one profile file, and one screen."""

    # Where two windows go at once the window manager offers the keyboard to the second one, which is no longer there to
    # take it, and then nobody has it. On Windows there is no such manager; here one has to click.
    loses_keyboard = True

    def __init__(self, programs, folder):
        super().__init__(programs, folder)
        self._system = folder / "wine"
        self.data = self._system / "drive_c/Mis declaraciones/xa"
        self.environment |= {"WINEPREFIX": str(self._system), "WINEARCH": "win64", "WINEDEBUG": "-all",
                             "QT_QPA_PLATFORM": "windows"}
        made = pathlib.Path(os.environ.get("WINEPREFIX", self._programs.parent / "wine"))
        shutil.copytree(made, self._system, symlinks=True, copy_function=self._takes, ignore=self._leaves)
        self.data.parent.mkdir()

    @staticmethod
    def _leaves(folder, names):
        """Other tests work in the system that is copied: what is theirs may go meanwhile."""
        place = os.path.basename(folder)
        if place == "drive_c":
            return set(names) - WINDOWS
        return names if place.lower() == "temp" else {name for name in names if name.lower().startswith(("xa0", "xa518"))
                                                      or name.endswith(".tmp")}

    @staticmethod
    def _takes(source, target):
        """The system's programs are shared, which takes no time; its registry is written to."""
        if source.endswith(".reg"):
            return shutil.copy2(source, target)
        try:
            os.link(source, target)
        except OSError:  # on another disk
            shutil.copy2(source, target)
        return target

    def command(self, program):
        return [str(ROOT / "scripts/wine"), str(self._programs / f"{program}.exe")]

    def path(self, path):
        drive = self._system / "drive_c"
        name = f"C:/{path.relative_to(drive)}" if path.is_relative_to(drive) else f"Z:{path}"
        return name.replace("/", "\\")

    def ends(self):
        subprocess.run(["/usr/lib/wine/wineserver64", "-k"], env=os.environ | self.environment, check=False)


def system(programs, folder):
    """That of the programs, told by what they are."""
    return (Wine if (pathlib.Path(programs) / "xa518.exe").exists() else Here)(programs, folder)
