#include "platform/UserName.h"

namespace xa518 {

QString NombreDelUsuario() {
    return qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
}

} // namespace xa518
