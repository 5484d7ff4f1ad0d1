#pragma once

#include <QDir>
#include <QFile>

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <aclapi.h>
#endif

namespace xa518::prueba {

// Whether nobody but its owner may do anything with a file or folder, as the system keeps it; on Windows the system
// itself and its administrators may.
#ifdef Q_OS_WIN
[[nodiscard]] inline bool EsConocido(PSID quien, PSID duenio) {
    return EqualSid(quien, duenio) || IsWellKnownSid(quien, WinLocalSystemSid) ||
           IsWellKnownSid(quien, WinBuiltinAdministratorsSid);
}

[[nodiscard]] inline bool EsPrivado(const QString& ruta) {
    PACL lista = nullptr;
    PSID duenio = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const std::wstring nombre = QDir::toNativeSeparators(ruta).toStdWString();
    constexpr SECURITY_INFORMATION kQue = DACL_SECURITY_INFORMATION | OWNER_SECURITY_INFORMATION;
    if (GetNamedSecurityInfoW(nombre.c_str(), SE_FILE_OBJECT, kQue, &duenio, nullptr, &lista, nullptr, &descriptor) !=
        ERROR_SUCCESS)
        return false;
    bool privado = lista != nullptr && lista->AceCount > 0; // without a list everybody may do anything
    for (DWORD lugar = 0; privado && lugar < lista->AceCount; ++lugar) {
        void* entrada = nullptr;
        privado = GetAce(lista, lugar, &entrada) != 0;
        const auto* permite = static_cast<ACCESS_ALLOWED_ACE*>(entrada);
        if (privado && permite->Header.AceType == ACCESS_ALLOWED_ACE_TYPE)
            privado = EsConocido(const_cast<DWORD*>(&permite->SidStart), duenio);
    }
    LocalFree(descriptor);
    return privado;
}
#else
[[nodiscard]] inline bool EsPrivado(const QString& ruta) {
    return !(QFile::permissions(ruta) & QFile::Permissions(0x0077));
}
#endif

} // namespace xa518::prueba
