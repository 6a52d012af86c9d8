#!/usr/bin/env python3
"""Shortens a random user's deeds that end the program: a crash, or the report of a sanitizer.

    tests/support/shorten_deeds.py DEEDS PROGRAM [ARGUMENT...]

DEEDS is the file that the program named when it ended. The program is started anew for each try, with fewer of them,
until none can be left out without its ending well. What is left is written to DEEDS.short.
"""

import os
import subprocess
import sys
import tempfile


def fails(deeds, command):
    with tempfile.NamedTemporaryFile("w", suffix=".txt") as tried:
        tried.write("".join(deeds))
        tried.flush()
        environment = dict(os.environ, LUMARINE_DEEDS=tried.name)
        try:
            run = subprocess.run(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                 timeout=600, check=False)
        except subprocess.TimeoutExpired:
            return True
        return run.returncode != 0


def shortened(deeds, command):
    part = max(len(deeds) // 2, 1)
    while True:
        shorter = False
        end = len(deeds)
        while end > 0:
            start = max(end - part, 0)
            rest = deeds[:start] + deeds[end:]
            if fails(rest, command):
                deeds, shorter = rest, True
                print(len(deeds), "deeds", flush=True)
            end = start
        if part == 1 and not shorter:
            return deeds
        part = max((part + 1) // 2, 1) if part > 1 else 1


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    file, command = sys.argv[1], sys.argv[2:]
    with open(file, encoding="utf-8") as given:
        deeds = [line if line.endswith("\n") else line + "\n" for line in given]
    if not fails(deeds, command):
        sys.exit("All of them together end well.")
    deeds = shortened(deeds, command)
    with open(file + ".short", "w", encoding="utf-8") as kept:
        kept.writelines(deeds)
    print("".join(deeds) + f"Once more:\n  LUMARINE_DEEDS={file}.short " + " ".join(command))


main()
