#pragma once

#include "values/DocumentCode.h"

#include <QComboBox>
#include <QStringList>

namespace xa518 {

class Base;

/// A list of items that begin with a two-digit code. The code can be typed; the arrows open the list, so that going
/// through it doesn't pick each item on the way.
class ListaCodigos : public QComboBox {
    Q_OBJECT
  public:
    explicit ListaCodigos(QWidget* padre = nullptr);

    /// Puts the items, none of them chosen. Of each the first `visibles` characters show in the open list; what is
    /// behind them is for the rules.
    void Llena(const QStringList& items, int visibles);
    /// How many characters show while the list is closed.
    void PonVisiblesCerrada(int caracteres);

    /// The chosen item, whole, and its code; empty when none is chosen.
    [[nodiscard]] QString Item() const { return currentData().toString(); }
    [[nodiscard]] QString Codigo() const;

    /// Chooses the item of that code; false, and no other choice, when there is none.
    bool Elige(const QString& codigo);
    /// The same for a document type.
    bool Elige(CodigoDocumento codigo);

  Q_SIGNALS:
    /// An item was chosen, by the person or by the program.
    void Elegido();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;

  private:
    template <typename Condicion>
    bool EligeSi(const Condicion& esEste);
    void Teclea(QChar digito);

    int m_visiblesCerrada;
    QString m_tecleado;
};

/// Fills a list with the document types that the detail dialogs offer, and with that of the row in hand: the import
/// takes types that the catalogue doesn't offer here, and their clients are opened as well.
void LlenaTiposDeDocumento(ListaCodigos& lista, Base& base, CodigoDocumento enMano = {});
/// Fills a list with types of payment voucher. While it is closed it shows the code; a label beside it tells the rest.
void LlenaTiposDeComprobante(ListaCodigos& lista, const QStringList& items);

} // namespace xa518
