#include "launcher/KeptNumbers.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "launcher/SentNumbers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

using CuentaDeEnvios = NumerosDeEnvio::Cuenta;
using LecturaDeCuenta = CuentaDeEnvios (NumerosDeEnvio::*)() const;

/// Of a base that can't be read, nothing; but a server that doesn't answer must not pass for one.
CuentaDeEnvios CuentaDe(const QString& ruta, const Formulario& formulario, LecturaDeCuenta cuenta) {
    try {
        const std::unique_ptr<Base> base = Base::Abre(ruta);
        return (NumerosDeEnvio(*base, formulario).*cuenta)();
    } catch (const ErrorBase&) {
        if (EsDeServidor(ruta))
            throw;
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

/// Of a base that can't be read or hasn't the table, nothing; of a server as above.
QList<Registro> FilasDe(const QString& ruta, const Tabla& tabla, const QString& orden) {
    QList<Registro> leidas;
    try {
        const std::unique_ptr<Base> base = Base::Abre(ruta);
        Registros filas = base->Lee(u"SELECT * FROM %1 ORDER BY %2"_s.arg(tabla.nombre, orden));
        QStringList columnas;
        for (const Columna& columna : tabla.columnas)
            columnas.append(columna.nombre);
        const CopiaColumnas copia(filas, tabla, columnas);
        while (filas.Siguiente())
            copia.Copia(filas, leidas.emplaceBack(tabla));
    } catch (const ErrorBase&) {
        if (EsDeServidor(ruta))
            throw;
        return {};
    }
    return leidas;
}

/// Adds the rows of that file that the base hasn't, as their key tells.
void Agrega(Base& base, const QString& archivo, const QString& tabla, const QStringList& clave, const QString& orden) {
    const QString condicion = u"WHERE "_s + clave.join(u" = ? AND "_s) + u" = ?"_s;
    for (const Registro& fila : FilasDe(archivo, base.Describe(tabla), orden)) {
        QVariantList valores;
        for (const QString& columna : clave)
            valores.append(fila.Valor(columna));
        if (!base.Busca(tabla, condicion, valores))
            base.Agrega(fila);
    }
}

} // namespace

void ConservaNumeros(const QString& nueva, const CopiasConNumeros& copias, const Formularios& formularios) {
    const std::unique_ptr<Base> base = Base::Abre(nueva);
    const QString ultima = copias.vigente.isEmpty() ? copias.todas.value(0) : copias.vigente;
    Transaccion transaccion = base->Comienza();
    for (const Formulario& formulario : formularios)
        NumerosDeEnvio(*base, formulario).Respeta(NumerosDados(copias.vigente, copias.todas, formulario));
    const auto deAlta = [&base](const QString& tabla) { return base->NumeroDeFila(tabla); };
    Agrega(*base, ultima, u"SPOOL"_s, {u"CodRep"_s, u"Secuencia"_s}, deAlta(u"SPOOL"_s));
    Agrega(*base, ultima, u"BITACORA"_s, {u"Doc_id_d"_s, u"periodo"_s, u"Formulario"_s, u"Marca"_s},
           deAlta(u"BITACORA"_s));
    if (EsDeServidor(nueva)) // where the reports' texts lie in the base
        Agrega(*base, ultima, u"INFORMES"_s, {u"archivo"_s, u"parte"_s}, u"archivo, parte"_s);
    transaccion.Confirma();
}

} // namespace xa518
