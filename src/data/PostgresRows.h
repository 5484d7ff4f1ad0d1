#pragma once

#include "data/NewRows.h"

#include <QStringList>

#include <libpq-fe.h>

#include <functional>
#include <memory>
#include <string>

namespace xa518 {

struct SueltaResultado {
    void operator()(PGresult* resultado) const { PQclear(resultado); }
};
using ResultadoPg = std::unique_ptr<PGresult, SueltaResultado>;

/// Runs a text; raises `ErrorBase`.
ResultadoPg Pide(PGconn* conexion, const QString& sql);

/// Rows on their way into a table by the server's bulk copy, in the order in which they are put.
class EntradaDeFilas {
  public:
    EntradaDeFilas(PGconn* conexion, const QString& tabla, const QStringList& columnas);
    EntradaDeFilas(const EntradaDeFilas&) = delete;
    EntradaDeFilas& operator=(const EntradaDeFilas&) = delete;
    /// What isn't ended is refused.
    ~EntradaDeFilas();

    void Pon(QByteArrayView utf8);
    void PonNulo();
    void CierraFila();
    /// Raises `ErrorBase` when the table doesn't take them: then none is in.
    void Termina();

  private:
    void Separa();
    void Envia();

    PGconn* m_conexion;
    std::string m_bytes;
    bool m_comienzaFila = true;
    bool m_abierta = true;
};

/// Adds packed rows within a transaction, see `Base::AgregaFilas`.
[[nodiscard]] QList<size_t> AltaPostgres(PGconn* conexion, const FilasNuevas& filas);

} // namespace xa518
