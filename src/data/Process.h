#pragma once

#include "data/Base.h"
#include "data/DeclarationKey.h"
#include "data/ObjetoUtil.h"

#include <QString>

#include <memory>

namespace xa518 {

class Reloj;

/// The values that live as long as the program: one record, made by the program's entry and passed by reference.
struct Proceso {
    explicit Proceso(const Reloj& unReloj) : reloj(unReloj) {}

    const Reloj& reloj;
    ObjetoUtil objetoUtil;
    QString numFormulario = kNumFormulario;

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
    QString fechaPrimerIgv; ///< `yyyymm`, catalogue "830"; empty when the row is missing

    QString docDeclarante;    ///< RUC of the open declaration's declarant
    QString periodoDeclarado; ///< `yyyymm`
};

} // namespace xa518
