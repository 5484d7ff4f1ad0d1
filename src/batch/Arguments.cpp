#include "batch/Arguments.h"

#include "batch/ExitCode.h"
#include "batch/Usage.h"
#include "declaration/Boxes.h"
#include "import/FormatGuide.h"
#include "values/ChequeNumber.h"
#include "values/Dates.h"
#include "values/Text.h"

#include <QCommandLineParser>
#include <QDir>
#include <QHash>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

Lectura Mal(const QString& motivo) {
    return {std::nullopt, u"xa518-lote: "_s + motivo + u"\n"_s + TextoDeUso(), kSalidaRechazado, motivo};
}

std::optional<Orden> LeeOrden(const QString& palabra) {
    static const QHash<QString, Orden> ordenes = {
        {u"importar"_s, Orden::Importar}, {u"declarar"_s, Orden::Declarar},
        {u"validar"_s, Orden::Validar},   {u"imprimir"_s, Orden::Imprimir},
        {u"exportar"_s, Orden::Exportar}, {u"registrar-orden"_s, Orden::RegistrarOrden},
        {u"borrar"_s, Orden::Borrar},     {u"listar"_s, Orden::Listar}};
    const auto orden = ordenes.constFind(palabra);
    return orden == ordenes.cend() ? std::nullopt : std::optional(*orden);
}

/// The options that each command takes beside those that all take.
QStringList OpcionesDe(Orden orden) {
    static const QStringList clave = {u"ruc"_s, u"periodo"_s};
    static const QStringList archivos = {u"percepciones"_s, u"ventas"_s, u"errores"_s};
    static const QStringList montos = {u"pagos-previos"_s, u"interes"_s, u"importe"_s,   u"efectivo"_s,
                                       u"cheque"_s,        u"banco"_s,   u"rectifica"_s, u"otro-original"_s};
    switch (orden) {
    case Orden::Importar: return clave + archivos + QStringList{u"probar"_s};
    case Orden::Declarar: return clave + archivos + montos + QStringList{u"todo-o-nada"_s, u"pdf"_s};
    case Orden::Validar: return clave;
    case Orden::Imprimir: return clave + QStringList{u"enviada"_s, u"anexos"_s, u"pdf"_s};
    case Orden::Exportar: return clave + QStringList{u"enviada"_s, u"carpeta"_s};
    case Orden::RegistrarOrden: return clave + QStringList{u"enviada"_s, u"numero"_s, u"digitos"_s};
    case Orden::Borrar: return clave + QStringList{u"enviada"_s};
    case Orden::Listar: return clave + QStringList{u"enviadas"_s};
    }
    return {};
}

void DeclaraOpciones(QCommandLineParser& lector) {
    for (const QString& conValor : {u"ruc"_s, u"periodo"_s, u"percepciones"_s, u"ventas"_s, u"errores"_s,
                                    u"pagos-previos"_s, u"interes"_s, u"importe"_s, u"cheque"_s, u"banco"_s,
                                    u"enviada"_s, u"carpeta"_s, u"numero"_s, u"digitos"_s, u"pdf"_s, u"hoy"_s})
        lector.addOption({conValor, {}, u"VALOR"_s});
    for (const QString& sinValor : {u"efectivo"_s, u"rectifica"_s, u"otro-original"_s, u"probar"_s, u"todo-o-nada"_s,
                                    u"anexos"_s, u"enviadas"_s, u"json"_s, u"formato"_s})
        lector.addOption(QCommandLineOption(sinValor));
    lector.addOptions({{{u"h"_s, u"help"_s}, {}}, {{u"v"_s, u"version"_s}, {}}});
}

/// Why the options couldn't be read; the parser's own words are English.
QString DefectoDe(const QCommandLineParser& lector) {
    const QStringList desconocidas = lector.unknownOptionNames();
    return desconocidas.isEmpty() ? u"falta o sobra el valor de una opción"_s
                                  : u"no hay una opción «%1»"_s.arg(desconocidas.first());
}

std::optional<QString> Dado(const QCommandLineParser& lector, const QString& opcion) {
    return lector.isSet(opcion) ? std::optional(lector.value(opcion)) : std::nullopt;
}

/// The installation folder becomes the current one at the start, so names are made absolute before.
std::optional<QString> RutaDada(const QCommandLineParser& lector, const QString& opcion) {
    const std::optional<QString> ruta = Dado(lector, opcion);
    return ruta ? std::optional(QDir::current().absoluteFilePath(*ruta)) : std::nullopt;
}

/// The first option given that the command doesn't take; empty when all fit.
QString OpcionAjena(const QCommandLineParser& lector, Orden orden) {
    const QStringList propias = OpcionesDe(orden) + QStringList{u"json"_s, u"hoy"_s};
    for (const QString& dada : lector.optionNames()) {
        if (!propias.contains(dada))
            return dada;
    }
    return {};
}

/// What the form's fields would not let in; empty when they would.
QString NoCabe(const Argumentos& dados) {
    const std::pair<QString, const std::optional<QString>*> montos[] = {
        {u"pagos-previos"_s, &dados.pagosPrevios}, {u"interes"_s, &dados.interes}, {u"importe"_s, &dados.importe}};
    for (const auto& [opcion, monto] : montos) {
        if (*monto && !EsMontoDeCasilla(**monto))
            return u"--%1 espera un entero, de %2 dígitos como máximo"_s.arg(opcion).arg(kCifrasDeCasilla);
    }
    const QString defecto = DefectoDeCheque(dados.cheque.value_or(QString()));
    return defecto.isEmpty() ? QString() : u"el número de --cheque "_s + defecto;
}

/// What is wrong with the key of the declaration, of which a list needs none; empty when nothing is.
QString FaltaEnClave(const QCommandLineParser& lector, const Argumentos& dados) {
    constexpr qsizetype kLargoRuc = 11;
    const bool filtra = dados.orden == Orden::Listar;
    if (!filtra && (dados.ruc.isEmpty() || dados.periodo.isEmpty()))
        return u"faltan --ruc y --periodo"_s;
    if (lector.isSet(u"ruc"_s) && (dados.ruc.size() > kLargoRuc || !SonDigitos(dados.ruc)))
        return u"--ruc espera los dígitos de un RUC"_s;
    if (lector.isSet(u"periodo"_s) && (dados.periodo.size() != 6 || !SonDigitos(dados.periodo)))
        return u"--periodo espera año y mes, AAAAMM"_s;
    return {};
}

/// What is wrong with the way of payment; empty when nothing is.
QString FaltaEnPago(const Argumentos& dados) {
    if (dados.efectivo && dados.cheque)
        return u"--efectivo y --cheque no van juntos"_s;
    if (dados.cheque.has_value() == dados.banco.isEmpty())
        return u"--cheque y --banco van juntos"_s;
    return {};
}

/// What is wrong with the sent copy and the number of its order; empty when nothing is.
QString FaltaEnOrden(const Argumentos& dados) {
    constexpr qsizetype kLargoNumero = 10;
    constexpr qsizetype kLargoDigitos = 2;
    if (dados.enviada && (dados.enviada->isEmpty() || !SonDigitos(*dados.enviada)))
        return u"--enviada espera el número de una copia"_s;
    if (dados.orden != Orden::RegistrarOrden)
        return {};
    if (!dados.enviada || dados.numero.isEmpty() || dados.digitos.isEmpty())
        return u"faltan --enviada, --numero o --digitos"_s;
    if (dados.numero.size() > kLargoNumero || !SonDigitos(dados.numero))
        return u"--numero espera dígitos, %1 como máximo"_s.arg(kLargoNumero);
    if (dados.digitos.size() > kLargoDigitos || !SonDigitos(dados.digitos))
        return u"--digitos espera dos dígitos"_s;
    return {};
}

/// What is wrong with the files named; empty when nothing is.
QString FaltaEnArchivos(const QCommandLineParser& lector, const Argumentos& dados) {
    if (dados.orden == Orden::Imprimir && !dados.pdf)
        return u"falta --pdf"_s;
    if (dados.orden == Orden::Exportar && !dados.carpeta)
        return u"falta --carpeta"_s;
    for (const QString& opcion : {u"pdf"_s, u"errores"_s, u"carpeta"_s}) {
        if (lector.isSet(opcion) && lector.value(opcion).isEmpty())
            return u"--%1 espera un nombre"_s.arg(opcion);
    }
    if ((dados.errores || dados.probar) && !dados.percepciones && !dados.ventas)
        return u"--errores y --probar van con --percepciones o --ventas"_s;
    return {};
}

/// What is wrong with the values given; empty when nothing is.
QString FaltaEn(const QCommandLineParser& lector, const Argumentos& dados) {
    for (const QString& falta : {FaltaEnClave(lector, dados), NoCabe(dados), FaltaEnPago(dados), FaltaEnOrden(dados),
                                 FaltaEnArchivos(lector, dados)}) {
        if (!falta.isEmpty())
            return falta;
    }
    if (dados.rectifica && dados.otroOriginal)
        return u"--rectifica y --otro-original no van juntos"_s;
    if (lector.isSet(u"hoy"_s) && !dados.hoy)
        return u"--hoy espera una fecha dd/mm/aaaa"_s;
    return {};
}

Argumentos Recoge(const QCommandLineParser& lector, Orden orden) {
    Argumentos dados;
    dados.orden = orden;
    dados.ruc = lector.value(u"ruc"_s);
    dados.periodo = lector.value(u"periodo"_s);
    dados.percepciones = RutaDada(lector, u"percepciones"_s);
    dados.ventas = RutaDada(lector, u"ventas"_s);
    dados.errores = RutaDada(lector, u"errores"_s);
    dados.probar = lector.isSet(u"probar"_s);
    dados.todoONada = lector.isSet(u"todo-o-nada"_s);
    dados.pagosPrevios = Dado(lector, u"pagos-previos"_s);
    dados.interes = Dado(lector, u"interes"_s);
    dados.importe = Dado(lector, u"importe"_s);
    dados.efectivo = lector.isSet(u"efectivo"_s);
    dados.cheque = Dado(lector, u"cheque"_s);
    dados.banco = lector.value(u"banco"_s);
    dados.rectifica = lector.isSet(u"rectifica"_s);
    dados.otroOriginal = lector.isSet(u"otro-original"_s);
    dados.enviada = Dado(lector, u"enviada"_s);
    dados.anexos = lector.isSet(u"anexos"_s);
    dados.pdf = RutaDada(lector, u"pdf"_s);
    dados.carpeta = RutaDada(lector, u"carpeta"_s);
    dados.numero = lector.value(u"numero"_s);
    dados.digitos = lector.value(u"digitos"_s);
    dados.enviadas = lector.isSet(u"enviadas"_s);
    dados.json = lector.isSet(u"json"_s);
    dados.hoy = LeeFecha(lector.value(u"hoy"_s));
    return dados;
}

Lectura Lee(QCommandLineParser& lector, const QStringList& argumentos) {
    const bool leidos = lector.parse(argumentos);
    if (lector.isSet(u"help"_s))
        return {std::nullopt, TextoDeAyuda(), kSalidaBien};
    if (lector.isSet(u"formato"_s))
        return {std::nullopt, GuiaDeFormatos(), kSalidaBien};
    if (lector.isSet(u"version"_s))
        return {std::nullopt, u"xa518-lote %1\n"_s.arg(QStringLiteral(XA518_VERSION)), kSalidaBien};
    if (!leidos)
        return Mal(DefectoDe(lector));
    if (lector.positionalArguments().size() != 1)
        return Mal(u"se espera una orden"_s);
    const std::optional<Orden> orden = LeeOrden(lector.positionalArguments().first());
    if (!orden)
        return Mal(u"no hay una orden «%1»"_s.arg(lector.positionalArguments().first()));
    if (const QString ajena = OpcionAjena(lector, *orden); !ajena.isEmpty())
        return Mal(u"esa orden no lleva --%1"_s.arg(ajena));
    const Argumentos dados = Recoge(lector, *orden);
    if (const QString falta = FaltaEn(lector, dados); !falta.isEmpty())
        return Mal(falta);
    return {dados, {}, kSalidaBien};
}

} // namespace

Lectura LeeArgumentos(const QStringList& argumentos) {
    QCommandLineParser lector;
    DeclaraOpciones(lector);
    Lectura lectura = Lee(lector, argumentos);
    lectura.pideJson = lector.isSet(u"json"_s);
    return lectura;
}

} // namespace xa518
