#pragma once

// Put before each source of a copy into which scripts/mutate has put faults. All of them are in one program,
// and a number tells which one it has.

namespace mutants {
// The fault of this process, 0 for none. Set once at the start.
extern int active;
// Which faults a test came by; written by any thread, which at worst writes the same twice.
extern unsigned char reached[];
}  // namespace mutants

/// Whether the program has this fault. Any thread.
inline bool Mutant(int number) {
  mutants::reached[number] = 1;
  return mutants::active == number;
}

namespace mutants {
// Operators with the fault of their number: a boundary that belongs to the other side, the other logic.
template <class A, class B>
bool Less(int number, const A& a, const B& b) {
  return Mutant(number) ? a <= b : a < b;
}
template <class A, class B>
bool LessEqual(int number, const A& a, const B& b) {
  return Mutant(number) ? a < b : a <= b;
}
template <class A, class B>
bool Greater(int number, const A& a, const B& b) {
  return Mutant(number) ? a >= b : a > b;
}
template <class A, class B>
bool GreaterEqual(int number, const A& a, const B& b) {
  return Mutant(number) ? a > b : a >= b;
}
template <class Right>
bool And(int number, bool left, Right right) {
  return Mutant(number) ? left || right() : left && right();
}
template <class Right>
bool Or(int number, bool left, Right right) {
  return Mutant(number) ? left && right() : left || right();
}
}  // namespace mutants
