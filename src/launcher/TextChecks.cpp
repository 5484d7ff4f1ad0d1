#include "launcher/TextChecks.h"

#include "data/BasePlace.h"

#include <QList>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLargoNombre = 50; ///< what the lists of the modules show
constexpr qsizetype kLargoUsuario = 50;
/// The modules read 255 characters of a value, and the names of files go behind this one.
constexpr qsizetype kLargoCarpeta = 240;
constexpr qsizetype kLargoConexion = 255;

/// By whole characters: those outside the basic plane are two units in the text.
bool SeImprime(const QString& texto) {
    const QList<uint> caracteres = texto.toUcs4();
    return std::all_of(caracteres.cbegin(), caracteres.cend(), [](uint c) { return QChar::isPrint(c); });
}

Veredicto ValidaLinea(const QString& texto, const QString& que, qsizetype largo) {
    if (texto.size() > largo)
        return Veredicto::Critico(u"%1 no puede pasar de %2 caracteres."_s.arg(que).arg(largo));
    return SeImprime(texto) ? Veredicto::Bien() : Veredicto::Critico(u"%1 tiene caracteres no permitidos."_s.arg(que));
}

} // namespace

Veredicto ValidaNombreDeDeclarante(const QString& nombre) {
    return ValidaLinea(nombre, u"El nombre del declarante"_s, kLargoNombre);
}

Veredicto ValidaUsuario(const QString& usuario) {
    return ValidaLinea(usuario, u"El nombre del usuario"_s, kLargoUsuario);
}

Veredicto ValidaCarpeta(const QString& carpeta) {
    return ValidaLinea(carpeta, u"La carpeta de la instalación"_s, kLargoCarpeta);
}

Veredicto ValidaConexion(const QString& conexion) {
    if (!EsDeServidor(conexion))
        return Veredicto::Critico(u"'%1' no es el texto de conexión de un servidor. Escríbalo como «host=servidor"
                                  " dbname=base sslmode=verify-full», o como «service=nombre»."_s.arg(conexion));
    return ValidaLinea(conexion, u"El texto de conexión"_s, kLargoConexion);
}

} // namespace xa518
