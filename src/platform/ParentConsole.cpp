#include "platform/ParentConsole.h"

namespace xa518 {

ConsolaQueLlama::ConsolaQueLlama() = default;
ConsolaQueLlama::~ConsolaQueLlama() = default;

} // namespace xa518
