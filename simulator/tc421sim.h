#pragma once

// tc421sim as a function: the program is its thin main, the tests call it in their own process.

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace sim {

/// What the user asks of a simulator that runs.
enum class Request { None, Dump, Stop };

/// Is a controller on the network until `nextRequest`, which is asked every few milliseconds, says Stop.
/// What is seen goes to `out`, what went wrong to `err`. Answers the exit status: 0, 1 if there is no
/// listening on the address, 2 for wrong usage, 4 if the dump could not be written.
int RunTc421Sim(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                const std::function<Request()>& nextRequest);

}  // namespace sim
