#include "import/CorrectionTexts.h"

#include "import/CorrectionRun.h"

#include <QDir>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString NombreDelCampo(const FormatoImportacion& formato, int campo) {
    return u"%1 %2"_s.arg(campo + 1).arg(formato.descripciones[static_cast<size_t>(campo)].nombre);
}

} // namespace

QString TextoDeFalla(const FallaDeLinea& falla) {
    return falla.codigo.isEmpty() ? falla.motivo : QString(falla.codigo) + u": "_s + falla.motivo;
}

QString TextoDeRechazadas(int lineas) {
    return u"Las rechazadas (%1)"_s.arg(lineas);
}

QString TextoDeGrupo(const FallaDeLinea& falla, const FormatoImportacion& formato, int lineas) {
    const QString campo = falla.campo < 0 ? QString() : NombreDelCampo(formato, falla.campo) + u" · "_s;
    return u"%1%2 (%3)"_s.arg(campo, TextoDeFalla(falla)).arg(lineas);
}

QString TextoDeLasQuePasan(int lineas) {
    return u"Las que pasan la prueba y no están importadas (%1)"_s.arg(lineas);
}

QString ExplicaLinea(const Correccion& correccion, int cual) {
    const QString linea = u"Línea %1 · "_s.arg(correccion.Numero(cual));
    if (correccion.Estado(cual) == EstadoDeLinea::Pasa)
        return linea + u"Pasa la prueba. Para cambiarla, vuelva a lo original."_s;
    const FallaDeLinea& falla = correccion.Falla(cual);
    const QString campo = falla.campo < 0 ? QString() : NombreDelCampo(correccion.Formato(), falla.campo) + u" · "_s;
    const QString corregida = correccion.EstaCorregida(cual) ? u" Corregida, sin probar."_s : QString();
    return linea + campo + TextoDeFalla(falla) + corregida;
}

QString ExplicaCampo(const FormatoImportacion& formato, int campo) {
    if (campo >= formato.Campos())
        return u"Lo que la línea tiene después de su último campo; debe quedar vacío."_s;
    if (campo < 0)
        return {};
    const DescripcionCampo& descripcion = formato.descripciones[static_cast<size_t>(campo)];
    return u"%1 (obligatorio: %2): %3"_s.arg(NombreDelCampo(formato, campo), descripcion.obligatorio,
                                             descripcion.forma);
}

QString ResumeDesenlace(const DesenlaceDeCorreccion& desenlace, bool prueba) {
    const auto pasan = std::count_if(desenlace.veredictos.cbegin(), desenlace.veredictos.cend(),
                                     [](const VeredictoDeLinea& veredicto) { return !veredicto.falla; });
    const auto rechazadas = desenlace.veredictos.size() - pasan;
    const QString cuentas =
        prueba ? u"Pasan: %1. Rechazadas: %2. No se ha guardado nada."_s : u"Importadas: %1. Rechazadas: %2."_s;
    const bool detenida = desenlace.resultado.fin == FinImportacion::Cancelada;
    return (detenida ? u"Detenida. "_s : QString()) + cuentas.arg(pasan).arg(rechazadas);
}

Mensaje PreguntaPorAplicar(const QString& valor, int campo, const FormatoImportacion& formato, int lineas) {
    const QString cuales = lineas == 1 ? u"en la otra línea"_s : u"en las otras %1 líneas"_s.arg(lineas);
    return {
        Icono::Pregunta,
        u"¿Poner «%1» en el campo %2 %3 con la misma falla?\nLas que ya tienen ese campo corregido quedan como están."_s
            .arg(valor, NombreDelCampo(formato, campo), cuales),
        {}};
}

Mensaje PreguntaPorReemplazar(const QString& ruta, const Correccion& correccion) {
    const int lineas = correccion.Cuantas() - correccion.Cuantas(EstadoDeLinea::Importada);
    const QString contenido = correccion.Original().isEmpty()
                                  ? u"El nuevo tendrá sólo las líneas que faltan importar: %1."_s.arg(lineas)
                                  : u"El nuevo tendrá todas sus líneas, con las corregidas en su lugar."_s;
    return {Icono::Pregunta,
            u"Ya existe el archivo %1\n%2\n¿Desea reemplazarlo?"_s.arg(QDir::toNativeSeparators(ruta), contenido),
            {}};
}

Mensaje PreguntaPorPerder(int lineas) {
    const QString cuantas = lineas == 1
                                ? u"Hay una línea corregida que no se ha importado ni guardado."_s
                                : u"Hay %1 líneas corregidas que no se han importado ni guardado."_s.arg(lineas);
    return {Icono::Pregunta, cuantas + u"\n¿Salir y perder las correcciones?"_s, {}};
}

} // namespace xa518
