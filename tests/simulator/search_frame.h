#pragma once

#include <string>

/// What a computer asks the network with, for controllers to answer.
inline std::string SearchFrame() {
  std::string frame(64, '\0');
  frame.replace(0, 9, std::string("\x55\xAA\x17\0\0\3\xDD\xEE\xFF", 9));
  frame[61] = static_cast<char>(0xE3);
  return frame;
}
