#!/usr/bin/python3
"""scripts/mutate puts faults of every kind into a small program, and each changes what that prints.

    tests/mutation/self_test.py COMPILER
"""

import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
try:
    import faults
except ImportError:
    print("skipped: python3-clang is not installed")
    sys.exit(77)

HERE = Path(__file__).resolve().parent

PROGRAM = r"""
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

constexpr int kNeverChanged = 4;
constexpr int AtCompileTime(int a) { return a < kNeverChanged ? a + 1 : a; }

bool IsLess(int a, int b) { return a < b; }
bool Both(bool a, bool b) { return a && b; }
int Sum(int a, int b) { return a + b; }
std::string Word(bool there) {
  if (there) return std::string("word");
  return {};
}
void Note(std::vector<int>& notes) { notes.push_back(7); }
int Doubled(int most) {
  static constexpr int kFirst = 1;
  int total = kFirst;
  for (int i = 0; i < most; ++i) total = total * 2 + i;
  switch (most) {
    case 3:
      return total;
    default:
      return 0;
  }
}
"""
# Where no fault is put, since it is no part of what is tried.
MAIN = r"""
namespace mutants {
int active = std::getenv("LUMARINE_MUTANT") ? std::atoi(std::getenv("LUMARINE_MUTANT")) : 0;
unsigned char reached[100] = {};
}
int main() {
  std::vector<int> notes;
  Note(notes);
  std::printf("%d%d%d %d%d%d%d %d %s,%s %zu%d %d %d %d", IsLess(1, 2), IsLess(2, 2), IsLess(3, 2), Both(true, true),
              Both(true, false), Both(false, true), Both(false, false), Sum(1, 2), Word(true).c_str(),
              Word(false).c_str(), notes.size(), notes.empty() ? 0 : notes.back(), Doubled(3), Doubled(2), AtCompileTime(2));
}
"""


def said(program, number):
    done = subprocess.run([program], env={"LUMARINE_MUTANT": str(number)}, capture_output=True, text=True, timeout=10)
    return done.returncode, done.stdout


def main():
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder) / "small.cpp"
        source.write_text(PROGRAM)
        changed = faults.Source(source, "small.cpp", ["-x", "c++", "-std=c++20"], 1, set())
        source.write_bytes(b'#include "mutant.h"\n' + changed.text + MAIN.encode())
        program = Path(folder) / "small"
        subprocess.run([sys.argv[1], "-std=c++20", "-w", f"-I{HERE}", "-o", program, source], check=True)
        plain = said(program, 0)
        if plain != (0, "100 1000 3 word, 17 12 0 3"):
            sys.exit(f"without a fault it says something else: {plain}")
        kinds = {fault.kind for fault in changed.faults}
        if kinds != {"condition", "boundary", "logic", "constant", "call", "return"}:
            sys.exit(f"other kinds of faults: {sorted(kinds)}")
        same = [fault.name for fault in changed.faults if said(program, fault.number) == plain]
        for name in same:
            print(f"changes nothing: {name}")
        print(f"{len(changed.faults)} faults, {len(same)} change nothing")
        sys.exit(1 if same else 0)


if __name__ == "__main__":
    main()
