#include "values/PrivateAccess.h"

#include <QDir>
#include <QFileDevice>

#include <qt_windows.h>

#include <io.h>
#include <sddl.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace xa518 {

namespace {

struct Suelta {
    void operator()(void* memoria) const { LocalFree(memoria); }
};

template <typename T>
using DelSistema = std::unique_ptr<T, Suelta>;

/// The person that the program runs for, as access lists spell him; empty when the system doesn't tell.
std::wstring Persona() {
    HANDLE ficha = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &ficha))
        return {};
    DWORD largo = 0;
    GetTokenInformation(ficha, TokenUser, nullptr, 0, &largo);
    std::vector<BYTE> datos(largo);
    const bool leida = GetTokenInformation(ficha, TokenUser, datos.data(), largo, &largo) != 0;
    CloseHandle(ficha);
    wchar_t* texto = nullptr;
    // NOLINTNEXTLINE(*-reinterpret-cast): so the system lays it out
    if (!leida || !ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(datos.data())->User.Sid, &texto))
        return {};
    const DelSistema<wchar_t> nombre(texto);
    return nombre.get();
}

/// By the person's own name and not by the owner's: what an administrator makes may belong to all of them.
DelSistema<void> DescriptorPrivado() {
    const std::wstring persona = Persona();
    const std::wstring texto = L"D:P(A;OICI;FA;;;" + persona + L")(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)";
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (persona.empty() ||
        !ConvertStringSecurityDescriptorToSecurityDescriptorW(texto.c_str(), SDDL_REVISION_1, &descriptor, nullptr))
        return nullptr;
    return DelSistema<void>(descriptor);
}

bool GuardaListas(const std::wstring& ruta) {
    std::array<wchar_t, MAX_PATH + 1> volumen{};
    DWORD rasgos = 0;
    if (!GetVolumePathNameW(ruta.c_str(), volumen.data(), MAX_PATH) ||
        !GetVolumeInformationW(volumen.data(), nullptr, 0, nullptr, nullptr, &rasgos, nullptr, 0))
        return true; // as nearly every disk
    return (rasgos & FILE_PERSISTENT_ACLS) != 0;
}

/// With the list goes that nothing is taken over from above. The call that also looks after what lies in a folder takes
/// it over all the same under Wine.
bool Limita(const std::wstring& ruta) {
    constexpr SECURITY_INFORMATION kLista = DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION;
    const DelSistema<void> descriptor = DescriptorPrivado();
    return descriptor && (SetFileSecurityW(ruta.c_str(), kLista, descriptor.get()) || !GuardaListas(ruta));
}

} // namespace

bool HazPrivado(const QString& ruta) {
    return Limita(QDir::toNativeSeparators(ruta).toStdWString());
}

bool HazPrivado(QFileDevice& archivo) {
    const auto manija =
        reinterpret_cast<HANDLE>(_get_osfhandle(archivo.handle())); // NOLINT(*-reinterpret-cast, *-int-to-ptr)
    std::wstring ruta(GetFinalPathNameByHandleW(manija, nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    const DWORD largo =
        GetFinalPathNameByHandleW(manija, ruta.data(), static_cast<DWORD>(ruta.size()), FILE_NAME_NORMALIZED);
    if (largo == 0 || largo >= ruta.size())
        return false;
    ruta.resize(largo);
    return Limita(ruta);
}

} // namespace xa518
