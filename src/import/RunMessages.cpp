#include "import/RunMessages.h"

#include "import/LineReader.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kTituloError = u"Error"_s;
const QString kTituloMensaje = u"Mensaje"_s;
const QString kTituloArchivo = u"Error en archivo a cargar"_s;

} // namespace

/// A duplicate key never comes here: the line that meets it is refused and the run goes on.
Mensaje Errores_Transferencia(const Error& error) {
    switch (static_cast<NumeroError>(error.Numero())) {
    case NumeroError::ArchivoNoEncontrado:
    case NumeroError::TablaNoExiste:
    case NumeroError::BaseNoExiste:
        return {Icono::Critico, u"En la ruta indicada, no se encuentra el archivo a transferir, verifique la ruta"_s,
                kTituloError};
    case NumeroError::ArgumentoInvalido:
        return {Icono::Informacion, u"Seleccionar directorio donde se encuentran\n\nlos archivos a transferir"_s,
                kTituloMensaje};
    case NumeroError::BaseBloqueada:
        return {Icono::Critico, u"El archivo se encuentra abierto!!\nIntente nuevamente por favor."_s, kTituloError};
    default:
        return {Icono::Critico, error.Texto() + " Error Tecnico: "_L1 + QString::number(error.Numero()), kTituloError};
    }
}

Mensaje MensajeDe(Defecto defecto) {
    switch (defecto) {
    case Defecto::SinSeparadorFinal:
        return {Icono::Critico, u"Cada línea del archivo debe terminar con el separador |"_s, kTituloArchivo};
    case Defecto::LineaDemasiadoLarga:
        return {Icono::Critico,
                u"El archivo de importación tiene una línea de más de %1 caracteres"_s.arg(LectorLineas::kLargoMaximo),
                kTituloArchivo};
    case Defecto::Separadores:
    case Defecto::Utf16:
    case Defecto::Ninguno: break;
    }
    return {Icono::Critico, u"El archivo de importación no tiene el número de campos correctos"_s, {}};
}

QString DetalleDe(const Revision& revision, int campos) {
    const QString cual = u"Línea %1: "_s.arg(revision.linea);
    const QString cuantas = revision.lineas == 1 ? u" Es la única así."_s : u" Hay %1 así."_s.arg(revision.lineas);
    switch (revision.defecto) {
    case Defecto::Separadores:
        return cual + u"tiene %1 campos terminados en «|» y deben ser %2."_s.arg(revision.campos).arg(campos) + cuantas;
    case Defecto::SinSeparadorFinal: return cual + u"tiene texto después de su último «|»."_s + cuantas;
    case Defecto::LineaDemasiadoLarga: return cual + u"es demasiado larga; puede que no sea un archivo de texto."_s;
    case Defecto::Utf16:
        return u"El archivo está en UTF-16 («Unicode»). Guárdelo como UTF-8 o como Windows-1252 («ANSI»)."_s;
    case Defecto::Ninguno: break;
    }
    return {};
}

QString MotivoDeLinea(Defecto defecto, int campos) {
    switch (defecto) {
    case Defecto::Separadores: return u"La línea debe tener %1 campos, cada uno terminado en «|»."_s.arg(campos);
    case Defecto::SinSeparadorFinal: return u"La línea tiene texto después de su último «|»."_s;
    case Defecto::LineaDemasiadoLarga: return u"La línea tiene más de %1 caracteres."_s.arg(LectorLineas::kLargoMaximo);
    case Defecto::Utf16:
    case Defecto::Ninguno: break;
    }
    return {};
}

Mensaje MensajeTransferido(const QString& archivo) {
    return {Icono::Informacion, u"Archivo : "_s + archivo + " transferido"_L1, kTituloMensaje};
}

Mensaje PreguntaPorReporte(const QString& rutaLog) {
    return {Icono::Pregunta,
            u"Algunos registros han sido rechazados!!\nVerifique Archivo Log: "_s + rutaLog +
                u"\n¿Desea Visualizar Reporte de errores?"_s,
            u"Confirmar"_s};
}

Mensaje PreguntaPorTotales(const Error& error) {
    return {Icono::Pregunta,
            u"Las líneas transferidas están en la declaración, pero no en los totales de sus clientes.\n"_s +
                error.Texto() + u"\n¿Desea calcular los totales otra vez?"_s,
            u"Confirmar"_s};
}

QString NoSeConservaron(qint64 perdidas, qint64 conservadas) {
    return u"No se pudieron conservar las últimas líneas transferidas: %1. Se conservan: %2."_s.arg(perdidas).arg(
        conservadas);
}

QString NoSeSabeSiQuedaron(qint64 dudosas, qint64 conservadas) {
    return u"No se sabe si quedaron las últimas líneas transferidas: %1. Las anteriores se conservan: %2."_s
        .arg(dudosas)
        .arg(conservadas);
}

Mensaje MensajeDePrueba(const QString& archivo, qint64 rechazados) {
    const QString resultado = rechazados < 1    ? u"ninguna línea sería rechazada."_s
                              : rechazados == 1 ? u"una línea sería rechazada."_s
                                                : u"%1 líneas serían rechazadas."_s.arg(rechazados);
    return {rechazados < 1 ? Icono::Informacion : Icono::Exclamacion,
            u"Prueba de "_s + archivo + u": "_s + resultado + u"\nNo se ha guardado nada."_s, kTituloMensaje};
}

} // namespace xa518
