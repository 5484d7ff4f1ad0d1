#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace xa518 {

class Base;

/// How many print-outs went along with a base, and how many had none: their file was gone already.
struct InformesMudados {
    qint64 llevados = 0;
    qint64 sinTexto = 0;
};

/// Carries the texts of the registered print-outs along: to a server they enter its base, and coming back they become
/// files in the folder. Within a transaction of the new base that has the register already. Each is read again and
/// compared. `alLlevarUno` is called with each, so that it may raise `Detenido`. Raises `Error`.
[[nodiscard]] InformesMudados MudaInformes(Base& origen, Base& destino, const QString& carpeta,
                                           const std::function<void()>& alLlevarUno);

/// The names of the files that a base has registered, without folder, each once.
[[nodiscard]] QStringList ArchivosDeInformes(Base& base);

} // namespace xa518
