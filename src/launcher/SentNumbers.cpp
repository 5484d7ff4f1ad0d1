#include "launcher/SentNumbers.h"

#include "data/Base.h"

#include <QStringList>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kCatalogoEnvios = u"999"_s;
constexpr qint64 kAntesDelPrimerControl = 10'000'000;
constexpr qint64 kUltimoControl = 99'999'999;

/// A sent copy has its head; of a deleted one the cash-sale rows stay behind, and the next copy would meet them.
const QStringList kTablasConCorrel = {u"HCAB"_s, u"HF518PDETVC"_s};

QString ArgumentoDe(const QString& ruc, const QString& periodo) {
    return kNumFormulario + ruc + periodo;
}

qint64 MayorNumero(Registros filas) {
    qint64 mayor = 0;
    while (filas.Siguiente())
        mayor = std::max(mayor, filas.Texto(0).toLongLong());
    return mayor;
}

} // namespace

QString NumerosDeEnvio::TomaCorrel(const ClaveDeclaracion& clave) {
    const QString argumento = ArgumentoDe(clave.ruc.Texto(), clave.periodo.Texto());
    qint64 ultimo = Anotado(argumento);
    for (const QString& tabla : kTablasConCorrel)
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
    Anota(kNumFormulario, ultimo + 1);
    return QString::number(ultimo + 1);
}

NumerosDeEnvio::Cuenta NumerosDeEnvio::Dados() const {
    Cuenta dados{{kNumFormulario, UltimoControl()}};
    Registros anotados =
        m_base->Lee(u"SELECT Argumento, correl_param FROM PARAM WHERE Numero = ?"_s, {kCatalogoEnvios});
    while (anotados.Siguiente())
        dados = Mayores(std::move(dados), {{anotados.Texto(0), anotados.Entero(1)}});
    for (const QString& tabla : kTablasConCorrel) {
        Registros copias =
            m_base->Lee(u"SELECT DISTINCT Doc_id_d, periodo, correl FROM "_s + tabla + u" WHERE Formulario = ?"_s,
                        {kNumFormulario});
        while (copias.Siguiente())
            dados = Mayores(std::move(dados),
                            {{ArgumentoDe(copias.Texto(0), copias.Texto(1)), copias.Texto(2).toLongLong()}});
    }
    return dados;
}

NumerosDeEnvio::Cuenta NumerosDeEnvio::DadosTrasOtroEnvio() const {
    Cuenta dados = Dados();
    ++dados[kNumFormulario];
    Registros registradas = m_base->Lee(u"SELECT Doc_id_d, periodo FROM CAB WHERE Formulario = ?"_s, {kNumFormulario});
    while (registradas.Siguiente())
        ++dados[ArgumentoDe(registradas.Texto(0), registradas.Texto(1))];
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
    return std::max({kAntesDelPrimerControl, Anotado(kNumFormulario),
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
