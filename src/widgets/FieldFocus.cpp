#include "widgets/FieldFocus.h"

#include "values/ObjetoUtil.h"
#include "values/Text.h"
#include "widgets/FieldKeys.h"
#include "widgets/FocusHooks.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargoDeSerie = 4;

} // namespace

void AlEntrar(QWidget& campo, std::function<void()> manejador) {
    FocoDeCampo::De(campo).alEntrar.append(std::move(manejador));
}

void AlSalir(QWidget& campo, std::function<Salida()> manejador) {
    FocoDeCampo::De(campo).alSalir.append(std::move(manejador));
}

void FormatosDeFoco(QLineEdit& campo, FormatoDeCampo alEntrar, FormatoDeCampo alSalir) {
    const auto aplica = [&campo](const FormatoDeCampo& formato) {
        const QString texto = campo.text();
        if (!Recorta(texto).isEmpty())
            campo.setText(formato(texto));
    };
    TextoSinCorte(campo);
    AlEntrar(campo, [aplica, alEntrar = std::move(alEntrar)] { aplica(alEntrar); });
    AlSalir(campo, [aplica, alSalir = std::move(alSalir)] {
        aplica(alSalir);
        return Salida::Libre;
    });
}

void CompletaConCeros(QLineEdit& campo, std::function<int()> ancho) {
    AlSalir(campo, [&campo, ancho = std::move(ancho)] {
        if (!campo.text().isEmpty())
            campo.setText(ObjetoUtil::CompletaIzquierda(campo.text(), ancho(), u'0'));
        return Salida::Libre;
    });
}

void CompletaSerie(QLineEdit& campo) {
    AlSalir(campo, [&campo] {
        const QString serie = campo.text();
        if (!serie.isEmpty())
            LimitaTecleo(campo, kLargoDeSerie);
        if (!Recorta(serie).isEmpty() && std::none_of(serie.begin(), serie.end(), EsLetra))
            campo.setText(ObjetoUtil::CompletaIzquierda(serie, kLargoDeSerie, u'0'));
        return Salida::Libre;
    });
}

Salida SueltaFoco(QWidget* destino) {
    QWidget* campo = QApplication::focusWidget();
    if (!campo || campo == destino)
        return Salida::Libre;
    const QPointer<FocoDeCampo> foco = FocoDeCampo::Busca(*campo);
    if (destino)
        destino->setFocus(Qt::OtherFocusReason);
    else
        campo->clearFocus();
    return foco ? foco->Ultima() : Salida::Libre;
}

} // namespace xa518
