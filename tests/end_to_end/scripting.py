"""What whoever writes scripts reads: the completion of bash offers what --help names, and the examples of the manual
run as they are written. Takes the folder of the programs."""
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

programs = Path(sys.argv[1]).resolve()
sources = Path(__file__).resolve().parents[2]
OPTION = re.compile(r"--[a-z][a-z-]*")


def help_of(program):
    return subprocess.run([programs / program, "--help"], check=True, capture_output=True, text=True).stdout


def offered(program, function, *words):
    """What the completion offers behind these words."""
    script = f"""source '{sources}/packaging/bash-completion/{program}'
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
{function}
printf '%s\\n' "${{COMPREPLY[@]}}" """
    run = subprocess.run(["bash", "-c", script, program, program, *words], check=True, capture_output=True, text=True)
    assert not run.stderr, run.stderr
    return set(run.stdout.split())


def check_equal(what, offers, wanted):
    assert wanted, f"{what}: nothing wanted"
    assert offers == wanted, f"{what}: offered and not in --help {offers - wanted}, missing {wanted - offers}"


def batch_completion():
    text = help_of("xa518-lote")
    usage, rest = text.split("\n\n", 1)
    of_all = {"--json", "--hoy"}
    commands = {}
    for line in usage.splitlines():
        if start := re.match(r"(?:Uso:|    ) xa518-lote ([a-z-]+)", line):
            command = start.group(1) if not start.group(1).startswith("-") else None
        if command:
            commands.setdefault(command, set(of_all)).update(OPTION.findall(line))
    for command, options in commands.items():
        check_equal(command, offered("xa518-lote", "_xa518_lote", command, "--"), options)
    check_equal("xa518-lote", offered("xa518-lote", "_xa518_lote", ""),
                set(commands) | {"--formato", "--help", "--version"})
    described = set(re.findall(r"^  (?:-., )?(--[a-z-]+)", rest, re.M))
    check_equal("xa518-lote, options described", set().union(*commands.values()) | {"--formato", "--help", "--version"},
                described)


def launcher_completion():
    orders = {}
    for line in help_of("consola").splitlines():
        if order := re.match(r"  (--[a-z-]+)", line):
            orders[order.group(1)] = set()
        elif option := re.match(r"      (--[a-z-]+)", line):
            orders[list(orders)[-1]].add(option.group(1))
    check_equal("consola", offered("consola", "_xa518_consola", "--"), set(orders))
    for order, options in orders.items():
        assert offered("consola", "_xa518_consola", order, "x", "--") == options, order


def values_are_files():
    with tempfile.TemporaryDirectory() as folder:
        Path(folder, "un mes").mkdir()
        Path(folder, "uno.txt").touch()
        for option, names in (("--percepciones", {"un", "mes", "uno.txt"}), ("--carpeta", {"un", "mes"})):
            found = offered("xa518-lote", "_xa518_lote", "exportar", option, f"{folder}/un")
            assert {Path(name).name for name in found} == names, found


def examples_of_the_manual():
    """They are one session, on an installation of its own; `# N` behind a line is its exit code."""
    page = (sources / "packaging/man/xa518-lote.1").read_text(encoding="utf-8")
    block = re.search(r"\.SH EJEMPLOS\n.*?\.nf\n(.*?)\.fi", page, re.S).group(1)
    lines = block.replace("\\e\n", "\\\n").replace("\\-", "-").replace("\\(dq", '"')
    with tempfile.TemporaryDirectory() as home:
        world = {**os.environ, "HOME": home, "XDG_CONFIG_HOME": f"{home}/.config", "XDG_DATA_HOME": f"{home}/.local/share",
                 "PATH": f"{programs}:{os.environ['PATH']}"}
        commands = re.sub(r"\\\n\s*", " ", lines).strip().splitlines()
        assert len(commands) > 5
        for command in commands:
            code = int(command.rsplit("#", 1)[1]) if "#" in command else 0
            run = subprocess.run(["bash", "-c", command], cwd=home, env=world, capture_output=True, text=True)
            assert run.returncode == code, f"{command}: {run.returncode}\n{run.stdout}{run.stderr}"


batch_completion()
launcher_completion()
values_are_files()
examples_of_the_manual()
