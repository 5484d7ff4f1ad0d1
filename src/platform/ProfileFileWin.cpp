#include "platform/ProfileFile.h"

#include "values/FileFailure.h"

#include <QDir>
#include <QFileInfo>

#include <qt_windows.h>

#include <array>

namespace xa518 {

namespace {

constexpr DWORD kLargoMaximo = 1024;

const wchar_t* Ancho(const QString& texto) {
    return reinterpret_cast<const wchar_t*>(texto.utf16()); // NOLINT(*-reinterpret-cast): the same 16 bits
}

/// What a profile call puts into a buffer and how much of it, as text.
template <typename Llamada>
QString Leido(Llamada&& llamada) {
    std::array<wchar_t, kLargoMaximo> buffer{};
    const DWORD largo = llamada(buffer.data(), kLargoMaximo);
    return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(largo));
}

} // namespace

ArchivoPerfil::ArchivoPerfil(QString ruta) : m_ruta(std::move(ruta)) {}

/// The system looks for a bare name where it keeps its profile files.
QString ArchivoPerfil::RutaDe(const QString& nombre) {
    return nombre;
}

bool ArchivoPerfil::Existe() const {
    const QString secciones = Leido(
        [this](wchar_t* buffer, DWORD largo) { return GetPrivateProfileSectionNamesW(buffer, largo, Ancho(m_ruta)); });
    return !secciones.isEmpty();
}

QString ArchivoPerfil::Lee(QStringView seccion, QStringView clave) const {
    const QString enSeccion = seccion.toString();
    const QString conClave = clave.toString();
    return Leido([&](wchar_t* buffer, DWORD largo) {
        return GetPrivateProfileStringW(Ancho(enSeccion), Ancho(conClave), L"", buffer, largo, Ancho(m_ruta));
    });
}

void ArchivoPerfil::Escribe(QStringView seccion, QStringView clave, QStringView valor) const {
    if (const QFileInfo archivo(m_ruta); archivo.isAbsolute())
        QDir().mkpath(archivo.path()); // where that fails, so does the call below
    const QString enSeccion = seccion.toString();
    const QString conClave = clave.toString();
    const QString puesto = valor.toString();
    if (!WritePrivateProfileStringW(Ancho(enSeccion), Ancho(conClave), Ancho(puesto), Ancho(m_ruta)))
        throw FallaDeArchivo(Intento::Escribir, m_ruta);
}

} // namespace xa518
