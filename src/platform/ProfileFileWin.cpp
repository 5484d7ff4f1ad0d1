#include "platform/ProfileFile.h"

#include "values/FileFailure.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <qt_windows.h>

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

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

bool Pone(const QString& ruta, const QString& seccion, const QString& clave, const QString& valor) {
    return WritePrivateProfileStringW(Ancho(seccion), Ancho(clave), Ancho(valor), Ancho(ruta)) != 0;
}

bool EsNombreSolo(const QString& ruta) {
    return QFileInfo(ruta).fileName() == ruta;
}

QString CarpetaDeWindows() {
    std::array<wchar_t, MAX_PATH> buffer{};
    return QString::fromWCharArray(buffer.data(), GetWindowsDirectoryW(buffer.data(), MAX_PATH));
}

QString EnWindows(const QString& nombre) {
    return CarpetaDeWindows() + u'\\' + nombre;
}

/// Where the system keeps what an older program of an account without rights writes to Windows' folder.
QString Propio(const QString& nombre) {
    const QString sinUnidad = CarpetaDeWindows().sliced(2);
    const QString datos = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir::toNativeSeparators(datos) + u"\\VirtualStore"_s + sinUnidad + u'\\' + nombre;
}

bool SePuedeEscribir(const QString& ruta) {
    constexpr DWORD kConTodos = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE abierto = CreateFileW(Ancho(ruta), GENERIC_WRITE, kConTodos, nullptr, OPEN_EXISTING, 0, nullptr);
    if (abierto == INVALID_HANDLE_VALUE)
        return false;
    CloseHandle(abierto);
    return true;
}

bool EmpiezaElPropio(const QString& nombre) {
    const QString propio = Propio(nombre);
    if (!QDir().mkpath(QFileInfo(propio).path()))
        return false;
    CopyFileW(Ancho(EnWindows(nombre)), Ancho(propio), TRUE); // where there is none it begins empty
    return true;
}

} // namespace

ArchivoPerfil::ArchivoPerfil(QString ruta) : m_ruta(std::move(ruta)) {}

/// The system looks for a bare name where it keeps its profile files.
QString ArchivoPerfil::RutaDe(const QString& nombre) {
    return nombre;
}

QString ArchivoPerfil::Vigente() const {
    const bool propio =
        EsNombreSolo(m_ruta) && QFileInfo::exists(Propio(m_ruta)) && !SePuedeEscribir(EnWindows(m_ruta));
    return propio ? Propio(m_ruta) : m_ruta;
}

bool ArchivoPerfil::Existe() const {
    const QString ruta = Vigente();
    const QString secciones =
        Leido([&](wchar_t* buffer, DWORD largo) { return GetPrivateProfileSectionNamesW(buffer, largo, Ancho(ruta)); });
    return !secciones.isEmpty();
}

QString ArchivoPerfil::Lee(QStringView seccion, QStringView clave) const {
    const QString ruta = Vigente();
    const QString enSeccion = seccion.toString();
    const QString conClave = clave.toString();
    return Leido([&](wchar_t* buffer, DWORD largo) {
        return GetPrivateProfileStringW(Ancho(enSeccion), Ancho(conClave), L"", buffer, largo, Ancho(ruta));
    });
}

void ArchivoPerfil::Escribe(QStringView seccion, QStringView clave, QStringView valor) const {
    if (!valor.isEmpty() && Lee(seccion, clave) == valor)
        return; // a start that changes nothing goes well where nothing can be written
    if (const QFileInfo archivo(m_ruta); archivo.isAbsolute())
        QDir().mkpath(archivo.path()); // where that fails, so does the call below
    const QString enSeccion = seccion.toString();
    const QString conClave = clave.toString();
    const QString puesto = valor.toString();
    if (Pone(Vigente(), enSeccion, conClave, puesto))
        return;
    if (!EsNombreSolo(m_ruta))
        throw FallaDeArchivo(Intento::Escribir, m_ruta);
    if (!EmpiezaElPropio(m_ruta) || !Pone(Propio(m_ruta), enSeccion, conClave, puesto))
        throw FallaDeArchivo(Intento::Escribir, EnWindows(m_ruta));
}

} // namespace xa518
