#pragma once

#include "family/StoredDeclaration.h"
#include "import/ErrorSheet.h"
#include "import/FileExport.h"
#include "values/Message.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QTextStream;

namespace xa518 {

/// One line of the list of declarations.
struct FilaLista {
    QString ruc;
    QString nombre;
    QString periodo; ///< `yyyymm`
    QString estado;
    QString rectifica;
    QString correl; ///< of a sent copy, as the three below
    QString control;
    QString norden;
    QString fecEnv;
};

/// An import file that was refused whole: its first line at fault, how many fields that has and should have, and how
/// many lines are like it. The line is 0 when the fault is the file's, the fields below 0 when they weren't counted.
struct ArchivoRechazado {
    QString archivo;
    QString motivo;
    qint64 linea = 0;
    qint64 campos = 0;
    int camposEsperados = 0;
    qint64 lineas = 0;
};

/// What an export left in files, and which rows had no place in them.
struct Exportado {
    qint64 lineas = 0;
    QList<FilaSinLugar> sinLugar;
};

/// What a command did, for a person or for a program. What doesn't concern the command is missing.
struct Informe {
    int codigo = 0;
    std::optional<int> transferidos;
    std::optional<int> rechazados;
    std::optional<QStringList> inconsistencias;
    std::optional<int> estado;
    QList<CasillaGuardada> casillas;
    QStringList archivos;
    QList<Mensaje> mensajes;
    QString apartada; ///< an unsaved declaration of the module that had to make room, for the standard error
    QString detalle;  ///< of what failed, in the words of the engine or the system
    std::optional<QList<FilaLista>> declaraciones;
    std::optional<ArchivoRechazado> rechazado;
    std::optional<QList<FilaPlanilla>> lineasRechazadas; ///< of all import files, in their order
    std::optional<Exportado> exportado;

    /// Refused or failed: the messages say why.
    [[nodiscard]] bool SeDetuvo() const;
};

/// For a person: what was done, then what he is told. The messages of a refusal aren't among it.
void EscribeTexto(const Informe& informe, QTextStream& salida);
void EscribeMensajes(const Informe& informe, QTextStream& salida);

/// One object on one line; members that don't concern the command are null or empty.
void EscribeJson(const Informe& informe, QTextStream& salida);

} // namespace xa518
