#pragma once

#include <QString>
#include <QStringList>

namespace xa518 {

/// The groups of a server's logins: who makes and changes the tables, who works in them, who only reads. A login
/// belongs to one of them; nobody logs in as the group itself.
inline const QString kGrupoDueno = QStringLiteral("xa518_dueno");
inline const QString kGrupoTrabajo = QStringLiteral("xa518_trabajo");
inline const QString kGrupoLectura = QStringLiteral("xa518_lectura");

/// The statements by which the groups got their rights.
struct PermisosDados {
    QStringList dados;
    QStringList pendientes; ///< those that this login hasn't the right to: an administrator runs them, in this order
};

/// Whether the login of that connection may change the tables of the base there.
[[nodiscard]] bool EsDuenoDeLaBase(const QString& conexion);

/// Makes the groups where they are missing and gives each its rights on the base; doing it again changes nothing.
/// `soloAltas` are the tables in which the working group adds rows, and neither changes nor removes one.
/// Raises `ErrorBase`.
[[nodiscard]] PermisosDados DaPermisos(const QString& conexion, const QStringList& soloAltas);

} // namespace xa518
