#include "app/ModuleHelp.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kAyudaModulo = uR"(Uso: xa518 [--rectificar RUC AAAAMM COPIA]

Abre el módulo de la declaración 0518. Trabaja junto a la consola: inicie primero consola, o las dos a la vez con
consola --modulo. Sin pantalla, use xa518-lote.

  --rectificar RUC AAAAMM COPIA
                   Empieza una declaración que rectifica esa copia enviada, y ofrece traer lo que tiene. Así lo
                   inicia la consola con su botón Rectificar.
  -h, --help       Muestra esta ayuda.
  -v, --version    Muestra la versión.

Código de salida: 0 el usuario cerró el módulo; 1 no se pudo abrir.
)"_s;

} // namespace

std::optional<QString> RespuestaSinVentana(const QStringList& argumentos) {
    const auto pide = [&](const QString& corta, const QString& larga) {
        return argumentos.contains(corta) || argumentos.contains(larga);
    };
    if (pide(u"-h"_s, u"--help"_s))
        return kAyudaModulo;
    if (pide(u"-v"_s, u"--version"_s))
        return u"xa518 " XA518_VERSION "\n"_s;
    return std::nullopt;
}

} // namespace xa518
