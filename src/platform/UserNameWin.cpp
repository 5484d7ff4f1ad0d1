#include "platform/UserName.h"

#include <qt_windows.h>

#include <lmcons.h>

#include <array>

namespace xa518 {

QString NombreDelUsuario() {
    std::array<wchar_t, UNLEN + 1> nombre{};
    DWORD largo = UNLEN + 1;
    return GetUserNameW(nombre.data(), &largo) ? QString::fromWCharArray(nombre.data()) : QString();
}

} // namespace xa518
