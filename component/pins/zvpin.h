// ZVPin: the record of one pin of the pin table. Booleans are -1 or 0.
#pragma once

#include <cstdint>
#include <string>

namespace zv {

struct ZVPin {
  std::string PinName;
  int32_t Direction = 0;
  int32_t DesiredPort = 0;
  int16_t PortMandatory = 0;
  int32_t SamePortAsID = 0;
  int32_t DesiredBit = 0;
  int16_t BitMandatory = 0;
  int16_t SimValue = 0;
  double AnalogueSim = 0.0;
  int32_t Port = 0;
  int32_t Bit = 0;
};

} // namespace zv
