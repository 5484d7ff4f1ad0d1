#include "launcher/KeptNumbers.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "launcher/SentNumbers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

using CuentaDeEnvios = NumerosDeEnvio::Cuenta;

/// Of a base that can't be read, nothing.
CuentaDeEnvios CuentaDe(const QString& ruta, CuentaDeEnvios (NumerosDeEnvio::*cuenta)() const) {
    try {
        const std::unique_ptr<Base> base = Base::Abre(ruta);
        return (NumerosDeEnvio(*base).*cuenta)();
    } catch (const ErrorBase&) {
        return {};
    }
}

CuentaDeEnvios CuentaDeTodas(const QStringList& copias, CuentaDeEnvios (NumerosDeEnvio::*cuenta)() const) {
    CuentaDeEnvios mayores;
    for (const QString& copia : copias)
        mayores = Mayores(std::move(mayores), CuentaDe(copia, cuenta));
    return mayores;
}

/// Each sending makes a copy first. So where the base itself can't say, or was made anew and knows less than its
/// copies, one sending at most is in none of them.
CuentaDeEnvios NumerosDados(const QString& vigente, const QStringList& copias) {
    const CuentaDeEnvios deCopias = CuentaDeTodas(copias, &NumerosDeEnvio::Dados);
    const CuentaDeEnvios deLaBase = vigente.isEmpty() ? CuentaDeEnvios() : CuentaDe(vigente, &NumerosDeEnvio::Dados);
    const bool loSabeLaBase = deLaBase.value(kNumFormulario) >= deCopias.value(kNumFormulario);
    return Mayores(deLaBase, loSabeLaBase ? deCopias : CuentaDeTodas(copias, &NumerosDeEnvio::DadosTrasOtroEnvio));
}

QList<Registro> InformesDe(const QString& ruta, const Tabla& spool) {
    QList<Registro> informes;
    try {
        const std::unique_ptr<Base> base = Base::Abre(ruta);
        Registros filas = base->Lee(u"SELECT * FROM SPOOL"_s);
        QStringList columnas;
        for (const Columna& columna : spool.columnas)
            columnas.append(columna.nombre);
        const CopiaColumnas copia(filas, spool, columnas);
        while (filas.Siguiente())
            copia.Copia(filas, informes.emplaceBack(spool));
    } catch (const ErrorBase&) {
        return {};
    }
    return informes;
}

} // namespace

void ConservaNumeros(const QString& nueva, const QString& vigente, const QStringList& copias) {
    const std::unique_ptr<Base> base = Base::Abre(nueva);
    const QString ultima = vigente.isEmpty() ? copias.value(0) : vigente;
    Transaccion transaccion = base->Comienza();
    NumerosDeEnvio(*base).Respeta(NumerosDados(vigente, copias));
    for (const Registro& informe : InformesDe(ultima, base->Describe(u"SPOOL"_s))) {
        const QVariantList clave{informe.Valor(u"CodRep"), informe.Valor(u"Secuencia")};
        if (!base->Busca(u"SPOOL"_s, u"WHERE CodRep = ? AND Secuencia = ?"_s, clave))
            base->Agrega(informe);
    }
    transaccion.Confirma();
}

} // namespace xa518
