#pragma once

// A system whose calls fail as it is told. This library stands between a program and the C library (Linux
// only). Loaded in front of a program by LD_PRELOAD it takes its orders from the environment; a test that
// links it gives them itself.
//
// An order is KIND:N:ERROR, as in "write:3:ENOSPC": the third call of that kind from now on fails with that
// error, and does nothing. "write:3+:ENOSPC" has all of them fail from the third on. The kinds are in
// system_faults.cpp, next to the calls that they stand for; "any" is each of them. For ERROR "SHORT" a write
// takes half of its bytes and says so.
//
// The environment: LUMARINE_FAULT holds the order. LUMARINE_FAULT_BELOW names a folder: only calls that
// concern it or what is in it count, and so of a file only those that name it or were given it by its name.
// LUMARINE_FAULT_REPORT names a file which gets a line for each call that fails, "KIND NAME"; and for the
// order "count" one for each call.

extern "C" {

/// Takes an order in the place of the last one, and starts to count anew. Empty: nothing fails any more. Any
/// thread.
void system_faults_order(const char* order);

/// From now on only calls that concern this folder count; empty: all. As the environment's
/// LUMARINE_FAULT_BELOW.
void system_faults_below(const char* folder);

/// How many calls have failed since the start. Any thread.
int system_faults_struck();
}
