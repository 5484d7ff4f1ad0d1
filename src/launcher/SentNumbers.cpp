#include "launcher/SentNumbers.h"

#include "data/Base.h"
#include "family/StoredDeclaration.h"

#include <QStringList>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kCatalogoEnvios = u"999"_s;
constexpr qint64 kAntesDelPrimerControl = 10'000'000;
constexpr qint64 kUltimoControl = 99'999'999;

qint64 MayorNumero(Registros filas) {
    qint64 mayor = 0;
    while (filas.Siguiente())
        mayor = std::max(mayor, filas.Texto(0).toLongLong());
    return mayor;
}

} // namespace

/// A sent copy has its head; what stays of a deleted one the next copy would meet.
QStringList NumerosDeEnvio::TablasConCorrel() const {
    QStringList tablas{u'H' + kTablaCabecera.nombre};
    for (const TablaDeDeclaracion& tabla : m_formulario->tablas) {
        if (tabla.copiaQueda)
            tablas.append(u'H' + tabla.nombre);
    }
    return tablas;
}

QString NumerosDeEnvio::ArgumentoDe(const Ruc& ruc, const Periodo& periodo) const {
    return m_formulario->numero + ruc.Texto() + periodo.Texto();
}

QString NumerosDeEnvio::ArgumentoDe(const Registros& fila) const {
    return ArgumentoDe(Ruc(fila.Texto(0)), Periodo::DeTabla(fila.Texto(1)).value_or(Periodo()));
}

QString NumerosDeEnvio::TomaCorrel(const ClaveDeclaracion& clave) {
    const QString argumento = ArgumentoDe(clave.ruc, clave.periodo);
    qint64 ultimo = Anotado(argumento);
    for (const QString& tabla : TablasConCorrel())
        ultimo = std::max(ultimo,
                          MayorNumero(m_base->Lee(u"SELECT DISTINCT correl FROM "_s + tabla + u' ' + clave.Condicion(),
                                                  clave.Valores())));
    Anota(argumento, ultimo + 1);
    return QString::number(ultimo + 1);
}

QString NumerosDeEnvio::TomaControl() {
    const qint64 ultimo = UltimoControl();
    if (ultimo >= kUltimoControl)
        throw Desbordamiento();
    Anota(m_formulario->numero, ultimo + 1);
    return QString::number(ultimo + 1);
}

NumerosDeEnvio::Cuenta NumerosDeEnvio::Dados() const {
    Cuenta dados{{m_formulario->numero, UltimoControl()}};
    Registros anotados =
        m_base->Lee(u"SELECT Argumento, correl_param FROM PARAM WHERE Numero = ?"_s, {kCatalogoEnvios});
    while (anotados.Siguiente())
        dados = Mayores(std::move(dados), {{anotados.Texto(0), anotados.Entero(1)}});
    for (const QString& tabla : TablasConCorrel()) {
        Registros copias =
            m_base->Lee(u"SELECT DISTINCT Doc_id_d, periodo, correl FROM "_s + tabla + u" WHERE Formulario = ?"_s,
                        {m_formulario->numero});
        while (copias.Siguiente())
            dados = Mayores(std::move(dados), {{ArgumentoDe(copias), copias.Texto(2).toLongLong()}});
    }
    return dados;
}

NumerosDeEnvio::Cuenta NumerosDeEnvio::DadosTrasOtroEnvio() const {
    Cuenta dados = Dados();
    ++dados[m_formulario->numero];
    Registros registradas =
        m_base->Lee(u"SELECT Doc_id_d, periodo FROM CAB WHERE Formulario = ?"_s, {m_formulario->numero});
    while (registradas.Siguiente())
        ++dados[ArgumentoDe(registradas)];
    return dados;
}

void NumerosDeEnvio::Respeta(const Cuenta& dados) {
    const Cuenta propios = Dados();
    for (const auto& [argumento, numero] : dados.asKeyValueRange()) {
        if (numero > propios.value(argumento))
            Anota(argumento, numero);
    }
}

qint64 NumerosDeEnvio::UltimoControl() const {
    return std::max({kAntesDelPrimerControl, Anotado(m_formulario->numero),
                     MayorNumero(m_base->Lee(u"SELECT max(control) FROM HCAB"_s))});
}

qint64 NumerosDeEnvio::Anotado(const QString& argumento) const {
    return MayorNumero(m_base->Lee(u"SELECT correl_param FROM PARAM WHERE Numero = ? AND Argumento = ?"_s,
                                   {kCatalogoEnvios, argumento}));
}

void NumerosDeEnvio::Anota(const QString& argumento, qint64 numero) {
    const QVariantList clave{kCatalogoEnvios, argumento};
    if (m_base->Ejecuta(u"UPDATE PARAM SET correl_param = ? WHERE Numero = ? AND Argumento = ?"_s,
                        QVariantList{numero} + clave) == 0)
        m_base->Ejecuta(u"INSERT INTO PARAM (correl_param, Numero, Argumento, Funcion) VALUES (?, ?, ?, ?)"_s,
                        QVariantList{numero} + clave + QVariantList{u"ULTIMO NUMERO DE ENVIO"_s});
}

NumerosDeEnvio::Cuenta Mayores(NumerosDeEnvio::Cuenta una, const NumerosDeEnvio::Cuenta& otra) {
    for (const auto& [argumento, numero] : otra.asKeyValueRange())
        una[argumento] = std::max(una.value(argumento), numero);
    return una;
}

} // namespace xa518
