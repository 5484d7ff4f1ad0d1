#include "family/Startup.h"

#include "family/FormDescription.h"
#include "platform/NetworkFolder.h"
#include "platform/Notices.h"
#include "platform/SingleInstance.h"
#include "platform/WindowSearch.h"
#include "values/Error.h"

#include <QDir>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A positive number has a leading blank: so the family's messages show it.
QString NumeroComoTexto(int numero) {
    return numero < 0 ? QString::number(numero) : u' ' + QString::number(numero);
}

} // namespace

bool PuedeArrancar(VentanasDelSistema& ventanas, InstanciaUnica& instancia, Avisos& avisos) {
    if (!cWindows(ventanas).CorreApp(kTituloIntegrador)) {
        avisos.Muestra({Icono::Critico, u"Debe ejecutar este módulo desde el Integrador del QMD."_s,
                        u"Error al ejecutar el módulo"_s});
        return false;
    }
    if (!instancia.Toma()) {
        // The title names another declaration. Wanted: it is the text that the family shows.
        avisos.Muestra({Icono::Informacion, u"La Aplicación ya se encuentra en ejecución."_s,
                        u"Declaración Pago Anual Impuesto a la Renta"_s});
        return false;
    }
    return true;
}

Mensaje MensajeDeConexion(const Error& falla) {
    const QString numero = NumeroComoTexto(falla.Numero());
    const QString texto =
        falla.Es(NumeroError::BaseBloqueada) ? numero + u"- Base esta bloqueda"_s : falla.Texto() + u'\n' + numero;
    return {Icono::Ninguno, texto, u"Error de Conección"_s};
}

std::optional<Mensaje> AvisoDeRed(const QString& rutaBase) {
    if (!QFileInfo(rutaBase).isFile() || !EstaEnRed(rutaBase))
        return std::nullopt;
    return Mensaje{
        Icono::Exclamacion,
        u"La base de datos está en una carpeta de red: '%1'.\n\nUn archivo compartido por la red puede perder"
        " datos cuando lo usan varios equipos o cuando la red se corta. Para que trabajen varios puestos,"
        " múdela a un servidor con «consola --mudar»."_s.arg(rutaBase),
        {}};
}

QString RutaAyuda(const QString& sysPath, const Formulario& formulario) {
    return sysPath + formulario.numero + QDir::separator() + QFileInfo(formulario.ayuda).fileName();
}

} // namespace xa518
