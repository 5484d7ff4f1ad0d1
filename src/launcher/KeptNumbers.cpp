#include "launcher/KeptNumbers.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "launcher/SentNumbers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

using CuentaDeEnvios = NumerosDeEnvio::Cuenta;
using LecturaDeCuenta = CuentaDeEnvios (NumerosDeEnvio::*)() const;

/// Of a base that can't be read, nothing.
CuentaDeEnvios CuentaDe(const QString& ruta, const Formulario& formulario, LecturaDeCuenta cuenta) {
    try {
        const std::unique_ptr<Base> base = Base::Abre(ruta);
        return (NumerosDeEnvio(*base, formulario).*cuenta)();
    } catch (const ErrorBase&) {
        return {};
    }
}

CuentaDeEnvios CuentaDeTodas(const QStringList& copias, const Formulario& formulario, LecturaDeCuenta cuenta) {
    CuentaDeEnvios mayores;
    for (const QString& copia : copias)
        mayores = Mayores(std::move(mayores), CuentaDe(copia, formulario, cuenta));
    return mayores;
}

/// Each sending makes a copy first. So where the base itself can't say, or was made anew and knows less than its
/// copies, one sending at most is in none of them.
CuentaDeEnvios NumerosDados(const QString& vigente, const QStringList& copias, const Formulario& formulario) {
    const CuentaDeEnvios deCopias = CuentaDeTodas(copias, formulario, &NumerosDeEnvio::Dados);
    const CuentaDeEnvios deLaBase =
        vigente.isEmpty() ? CuentaDeEnvios() : CuentaDe(vigente, formulario, &NumerosDeEnvio::Dados);
    const bool loSabeLaBase = deLaBase.value(formulario.numero) >= deCopias.value(formulario.numero);
    return Mayores(deLaBase,
                   loSabeLaBase ? deCopias : CuentaDeTodas(copias, formulario, &NumerosDeEnvio::DadosTrasOtroEnvio));
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

void ConservaNumeros(const QString& nueva, const CopiasConNumeros& copias, const Formularios& formularios) {
    const std::unique_ptr<Base> base = Base::Abre(nueva);
    const QString ultima = copias.vigente.isEmpty() ? copias.todas.value(0) : copias.vigente;
    Transaccion transaccion = base->Comienza();
    for (const Formulario& formulario : formularios)
        NumerosDeEnvio(*base, formulario).Respeta(NumerosDados(copias.vigente, copias.todas, formulario));
    for (const Registro& informe : InformesDe(ultima, base->Describe(u"SPOOL"_s))) {
        const QVariantList clave{informe.Valor(u"CodRep"), informe.Valor(u"Secuencia")};
        if (!base->Busca(u"SPOOL"_s, u"WHERE CodRep = ? AND Secuencia = ?"_s, clave))
            base->Agrega(informe);
    }
    transaccion.Confirma();
}

} // namespace xa518
