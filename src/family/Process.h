#pragma once

#include "data/Base.h"
#include "data/ObjetoUtil.h"
#include "family/DeclarationKey.h"
#include "family/FormDescription.h"

#include <QString>

#include <memory>

namespace xa518 {

class Reloj;

/// The values of `Proceso::opcion`. There is no 2.
inline constexpr int kNueva = 0;
inline constexpr int kModificar = 1; ///< of a sent declaration: register its order number
inline constexpr int kEliminar = 3;

/// The values that live as long as the program: one record, made by the program's entry and passed by reference.
struct Proceso {
    /// `suFormulario` is the number of a module's own form; the launcher has none.
    Proceso(const Reloj& unReloj, Formularios losConocidos, QString suFormulario)
        : reloj(unReloj), formularios(std::move(losConocidos)), numFormulario(std::move(suFormulario)) {}

    const Reloj& reloj;
    Formularios formularios; ///< all that the program knows
    QString numFormulario;
    ObjetoUtil objetoUtil;

    // From XA000.INI.
    QString sysPath;      ///< installation folder, its trailing separator as it stands in the file
    QString sysVersion;   ///< read by nobody
    QString sysUser;      ///< whose rows of CONT, CLAVES and SPOOL are meant
    QString rutaBase;     ///< full name of the database
    QString rutaMenu;     ///< read by nobody
    QString rutaTMPBarra; ///< with its separator
    QString rutaTMP;      ///< without separator, and so are the report and the log names that begin with `rutaRPT`
    QString rutaRPT;
    QString rutaBMP;

    std::unique_ptr<Base> baseDatos;
    Periodo fechaPrimerIgv; ///< of catalogue "830"; none when the row is missing

    // What the last command was for. Nothing resets it when its form closes: wanted, the next command sets it anew.
    int opcion = kNueva;
    bool enviadas = false; ///< the sent declarations are meant
    QString tipoConsulta;  ///< what the list of `FrmConsultas` shows: "B" banks

    // The open declaration, and what the dialogs over it are for.
    Ruc docDeclarante; ///< of the open declaration
    Periodo periodoDeclarado;
    QString correl; ///< of the sent copy that was picked, and so the next two
    QString numOrden;
    QString numControl;
    QString opcionDetalle; ///< "0" new client, "1" modify, "3" import
    QString modoDetalle;   ///< "0" new voucher, "1" modify
    QString modoPago;      ///< index of the pressed button as text

    // The last validation.
    int hayInconsistencia = 0;
    QString rutaMens;
    QString verConsist; ///< "1" while its window is open; read by nobody
};

} // namespace xa518
