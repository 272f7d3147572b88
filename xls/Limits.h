#pragma once

namespace korva {

// Takes memory, time and the right to write files from this process, as what it reads may be made to harm:
// 512 MiB, 20 s of the processor, no file (so its output has to be a pipe) and no core. False if the system
// does not allow it.
bool LimitThisProcess();

}  // namespace korva
