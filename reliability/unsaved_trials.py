"""The module killed while somebody types, imports and validates: what it offers at its next start may lack the last two
seconds, and nothing else."""

import random
import subprocess
import time
from collections import Counter

from trials import BATCH, BIG_LINES, WORK, demand

MAY_LACK = 2000  # milliseconds
LONGEST = 6.0  # seconds from the first key to the kill


def entries(diary):
    """Each as its moment, in milliseconds, and what was told; the last line may be half written."""
    lines = diary.read_text(encoding="utf-8").split("\n")[:-1] if diary.exists() else []
    return [(int(moment), told) for moment, told in (line.split(" ", 1) for line in lines)]


def program(place, *arguments):
    return [place.build / "reliability/typing_module", *map(str, arguments)]


def at_work_until_killed(place, diary, chance):
    """Types until a random moment after its first key; returns that moment by the clock of the diary."""
    said = place.folder / "said"
    with open(said, "w", encoding="utf-8") as errors:
        worker = subprocess.Popen(program(place, diary, "escribe", chance.randrange(1 << 30)), env=place.environment,
                                  stdout=subprocess.DEVNULL, stderr=errors)
    try:
        deadline = time.monotonic() + 60
        while not any(told == "empieza" for _, told in entries(diary)):
            demand(worker.poll() is None and time.monotonic() < deadline,
                   f"the module didn't begin: {said.read_text(encoding='utf-8')[-500:]}")
            time.sleep(0.02)
        time.sleep(chance.uniform(0, LONGEST))
        demand(worker.poll() is None, f"the module ended by itself: {worker.returncode}")
    finally:
        worker.kill()
        killed = time.monotonic() * 1000
        worker.wait()
    return killed


def taken_up(place, diary):
    """What the next start shows: its state, or nothing when it offers nothing."""
    diary.unlink()
    run = subprocess.run(program(place, diary, "retoma", 0), env=place.environment, capture_output=True, timeout=60,
                         check=False)
    found = [told for _, told in entries(diary)]
    demand(run.returncode == 0 and len(found) == 1, f"the next start: {run.returncode} {found} {run.stderr}")
    return found[0].removeprefix("retomada ") if found[0] != "nada" else None


def compare(told, killed, found):
    """The state found must be one that the form had within the last two seconds, or the one before them."""
    states = [(moment, state) for moment, state in told if state.count("|") == 4]
    older = [number for number, (moment, _) in enumerate(states) if moment < killed - MAY_LACK]
    allowed = [state for _, state in states[older[-1] if older else 0:]]
    if found is None:
        demand(not older, f"nothing is offered of what was typed {killed - states[older[0]][0]:.0f} ms before" if older else "")
        return "nothing typed for two seconds yet"
    demand(found in allowed or not older, f"{found} is none of the last two seconds, which begin with {allowed[0]}")
    return "the last key kept" if states and found == states[-1][1] else "up to two seconds lacking"


def killed_unsaved(place, seed):
    """At each moment: no more than two seconds are lacking of what was typed, no line of what was imported."""
    chance = random.Random(seed)
    place.restore()
    with open(place.environment["XDG_CONFIG_HOME"] + "/XA000.INI", "a", encoding="utf-8") as profile:
        profile.write(f"\n[Importar]\nCarpeta={place.big}\n")
    diary = place.folder / "diary"
    seen = Counter()
    for _ in range(place.moments):
        place.restore()
        for mark in place.folder.glob("*.lock"):
            mark.unlink()
        diary.unlink(missing_ok=True)
        killed = at_work_until_killed(place, diary, chance)
        told = entries(diary)
        steps = [what for _, what in told]
        seen[compare(told, killed, taken_up(place, diary))] += 1
        place.saved()  # the engine finds the base sound
        lines = len(place.rows(WORK[2]))
        demand(lines == BIG_LINES if "importado" in steps else lines % BATCH == 0 or lines == BIG_LINES,
               f"{lines} lines, {'imported' if 'importado' in steps else 'importing'}")
        if "importa" in steps:
            seen["with an import done" if "importado" in steps else "in an import"] += 1
    return place.moments, ", ".join(f"{n} {state}" for state, n in sorted(seen.items()))


def all_of(seed):
    return [("Killed while typing, unsaved", 1, lambda place: killed_unsaved(place, seed))]
