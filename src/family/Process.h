#pragma once

#include "data/Base.h"
#include "family/DeclarationKey.h"
#include "family/FormDescription.h"

#include <QString>

#include <memory>

namespace xa518 {

class Reloj;

/// What holds for the whole program: its configuration, the open base, the clock. One record, made by the program's
/// entry and passed by reference. What a form works on isn't here: it gets that as its arguments.
struct Proceso {
    /// `suFormulario` is the number of a module's own form; the launcher has none.
    Proceso(const Reloj& unReloj, Formularios losConocidos, QString suFormulario)
        : reloj(unReloj), formularios(std::move(losConocidos)), numFormulario(std::move(suFormulario)) {}

    const Reloj& reloj;
    Formularios formularios; ///< all that the program knows
    QString numFormulario;

    // From XA000.INI. Those that no reader is named of are kept for the family: docs/decisions/rituals-kept.md.
    QString sysPath; ///< installation folder, its trailing separator as it stands in the file
    QString sysVersion;
    QString sysUser;  ///< whose rows of CONT, CLAVES and SPOOL are meant
    QString rutaBase; ///< full name of the database
    QString rutaMenu;
    QString rutaTMPBarra; ///< with its separator
    QString rutaTMP;      ///< without separator, and so are the report and the log names that begin with `rutaRPT`
    QString rutaRPT;
    QString rutaBMP;

    std::unique_ptr<Base> baseDatos;
    Periodo fechaPrimerIgv; ///< of catalogue "830"; none when the row is missing
};

} // namespace xa518
