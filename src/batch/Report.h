#pragma once

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

struct CasillaGrabada {
    QString casilla;
    QString valor;
};

/// What a command did, for a person or for a program. What doesn't concern the command is missing.
struct Informe {
    int codigo = 0;
    std::optional<int> transferidos;
    std::optional<int> rechazados;
    std::optional<QStringList> inconsistencias;
    std::optional<int> estado;
    QList<CasillaGrabada> casillas;
    QStringList archivos;
    QList<Mensaje> mensajes;
    std::optional<QList<FilaLista>> declaraciones;
};

/// For a person: what was done, then what he is told. The messages of a refusal aren't among it.
void EscribeTexto(const Informe& informe, QTextStream& salida);
void EscribeMensajes(const Informe& informe, QTextStream& salida);

/// One object on one line; members that don't concern the command are null or empty.
void EscribeJson(const Informe& informe, QTextStream& salida);

} // namespace xa518
