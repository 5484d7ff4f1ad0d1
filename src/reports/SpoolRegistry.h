#pragma once

#include <QString>

#include <utility>

namespace xa518 {

class Base;
class Reloj;
struct Proceso;

/// What a report is written and registered with: in a thread of its own, that thread's own connection.
struct EntornoRegistro {
    Base& base;
    const Reloj& reloj;
    QString rutaRPT;
    QString usuario;

    EntornoRegistro(Base& unaBase, const Reloj& unReloj, QString suRutaRPT, QString suUsuario)
        : base(unaBase), reloj(unReloj), rutaRPT(std::move(suRutaRPT)), usuario(std::move(suUsuario)) {}
    /// That of the process itself. Its base must be open.
    EntornoRegistro(const Proceso& proceso); // NOLINT(google-explicit-constructor): a process will do
};

/// Allocates the name of a spool file and registers it in `SPOOL`, where the launcher finds it. One transaction, so
/// that two programs at once never get one name. The row stays even if the report is never written: wanted, its
/// number is never given again. An account that may read alone gets a name of its own, which isn't registered. Raises
/// `ErrorBase`.
[[nodiscard]] QString NuevoReporte(const EntornoRegistro& entorno, const QString& codigo, int tipoDoc,
                                   const QString& doc);

/// The full name of a spool file in the folder of reports, `Proceso::rutaRPT`.
[[nodiscard]] QString RutaDeInforme(const QString& rutaRPT, const QString& archivo);

} // namespace xa518
