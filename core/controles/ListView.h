#pragma once
// The list control of the screens, in report view: columns with a caption, a width in twips and a Tag;
// rows with a text, sub-items, a selection, a small icon as a mark, sorting as text by one column and a search
// by text. Indices are 1-based, as the screens count them; sub-items count from 1 (column 2).
#include "core/vb/Variant.h"

#include <QTreeWidget>

class QGroupBox;
#include <memory>
#include <vector>

namespace controles {

class ListView;

// Widths are given in twips; the screen shows 15 twips to a pixel at the font the screens were laid out for.
constexpr int TwipsPorPixel = 15;

class ColumnHeader {
public:
    QString Text() const { return texto_; }
    void setText(const QString& texto);
    int Width() const;                        // twips
    void setWidth(int twips);
    int Alignment() const { return alineacion_; }
    void setAlignment(int alineacion);
    const vb::Variant& Tag() const { return tag_; }
    void setTag(const vb::Variant& tag) { tag_ = tag; }
    int Index() const { return columna_ + 1; }
    int SubItemIndex() const { return columna_; }

private:
    friend class ColumnHeaderCollection;
    ColumnHeader(ListView& lista, int columna) : lista_(lista), columna_(columna) {}
    ListView& lista_;
    int columna_;
    QString texto_;
    int alineacion_ = 0;
    vb::Variant tag_;
};

class ColumnHeaderCollection {
public:
    explicit ColumnHeaderCollection(ListView& lista) : lista_(lista) {}
    // Adds a column at the end; the width in twips.
    ColumnHeader* Add(const QString& texto = QString(), int anchoTwips = 1440, int alineacion = 0);
    void Clear();
    int Count() const { return static_cast<int>(h_.size()); }
    ColumnHeader& operator()(int indice);     // 1-based; 35600 outside
    ColumnHeader& Item(int indice) { return (*this)(indice); }

private:
    ListView& lista_;
    std::vector<std::unique_ptr<ColumnHeader>> h_;
};

class ListItem : public QTreeWidgetItem {
public:
    ListItem() : QTreeWidgetItem(UserType) {}

    QString Text() const { return QTreeWidgetItem::text(0); }
    void setText(const QString& texto);
    using QTreeWidgetItem::setText;
    // Sub-item i (1 .. columns − 1); 380 outside.
    QString SubItems(int i) const;
    void setSubItems(int i, const QString& texto);
    int Index() const;                        // 1-based position in the list as it stands
    bool Selected() const { return isSelected(); }
    // Selecting a row of a single-selection list unselects the others and makes it the selected item.
    void setSelected(bool seleccionado);
    const vb::Variant& SmallIcon() const { return icono_; }
    void setSmallIcon(const vb::Variant& icono);   // a non-zero number shows the mark
    const vb::Variant& Tag() const { return tag_; }
    void setTag(const vb::Variant& tag) { tag_ = tag; }
    bool Checked() const { return checkState(0) == Qt::Checked; }
    void setChecked(bool marcado) { setCheckState(0, marcado ? Qt::Checked : Qt::Unchecked); }
    void EnsureVisible();
    ListView* Lista() const;

    bool operator<(const QTreeWidgetItem& otro) const override;

private:
    vb::Variant icono_;
    vb::Variant tag_;
};

class ListItemCollection {
public:
    explicit ListItemCollection(ListView& lista) : lista_(lista) {}
    // A new row with its text; at the end, or in its place when the list is sorted. The first row of an empty
    // list becomes its selected item.
    ListItem* Add(const QString& texto = QString());
    void Clear();
    int Count() const;
    ListItem& operator()(int indice);         // 1-based; 35600 outside
    ListItem& Item(int indice) { return (*this)(indice); }
    void Remove(int indice);

private:
    ListView& lista_;
};

class ListView : public QTreeWidget {
    Q_OBJECT
public:
    enum : int { lvwIcon = 0, lvwSmallIcon = 1, lvwList = 2, lvwReport = 3 };
    enum : int { lvwAutomatic = 0, lvwManual = 1 };
    enum : int { lvwText = 0, lvwSubItem = 1, lvwTag = 2 };
    enum : int { lvwWholeWord = 0, lvwPartial = 1 };
    enum : int { lvwAscending = 0, lvwDescending = 1 };
    enum : int { lvwColumnLeft = 0, lvwColumnRight = 1, lvwColumnCenter = 2 };
    // The extended styles a screen switches on with LVM_SETEXTENDEDLISTVIEWSTYLE.
    enum : int { LVS_EX_GRIDLINES = 1, LVS_EX_CHECKBOXES = 4, LVS_EX_FULLROWSELECT = 32 };

    // Column widths are given in twips for the small 8-point face the screens were laid out with, about five
    // pixels a character at 15 twips a pixel; a wider font widens the columns in proportion, never narrows them.
    double PixelesPorTwip() const;
    // The height of a row in `letra`: the tallest accented capitals and the descenders whole, with a margin.
    static int AltoRenglon(const QFont& letra);

    explicit ListView(QWidget* padre = nullptr);
    ~ListView() override;

    ColumnHeaderCollection& ColumnHeaders() { return encabezados_; }
    ListItemCollection& ListItems() { return renglones_; }

    // The selected row (in a multiple selection the current one if selected, else the first); null if none.
    ListItem* SelectedItem() const;
    void setSelectedItem(ListItem* item);

    int SortKey() const { return sortKey_; }
    void setSortKey(int columna);
    int SortOrder() const { return sortOrder_; }
    void setSortOrder(int orden);
    bool Sorted() const { return sorted_; }
    // True sorts now by SortKey and SortOrder and keeps the rows sorted as they are added or changed.
    void setSorted(bool ordenada);

    // The first row from `inicio` (1-based) on whose text (lvwText), any sub-item (lvwSubItem) or Tag
    // (lvwTag) equals `texto` (lvwWholeWord) or begins with it (lvwPartial), without regard to case.
    ListItem* FindItem(const QString& texto, int donde = lvwText, int inicio = 1, int coincidencia = lvwWholeWord);

    void View(int vista) { vista_ = vista; }
    int View() const { return vista_; }
    void LabelEdit(int modo) { labelEdit_ = modo; }
    int LabelEdit() const { return labelEdit_; }
    void GridLines(bool lineas);
    bool GridLines() const { return gridLines_; }
    void FullRowSelect(bool fila);
    bool FullRowSelect() const { return fullRowSelect_; }
    void MultiSelect(bool varias);
    bool MultiSelect() const { return selectionMode() != QAbstractItemView::SingleSelection; }
    void Checkboxes(bool casillas);
    bool Checkboxes() const { return checkboxes_; }
    void HideColumnHeaders(bool ocultar);
    // SendMessageA(hWnd, LVM_SETEXTENDEDLISTVIEWSTYLE, mascara, valor): grid lines, check boxes, full rows.
    void EstiloExtendido(int mascara, int valor);

signals:
    void ColumnClick(int indiceEncabezado);   // 1-based
    void ItemClick(controles::ListItem* item);
    void Click();
    void DblClick();

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    friend class ColumnHeader;
    friend class ColumnHeaderCollection;
    friend class ListItem;
    friend class ListItemCollection;
    // Text comparison of two rows on the sort column; <0, 0, >0.
    int compara(const QTreeWidgetItem& a, const QTreeWidgetItem& b) const;
    bool vaAntes(const QTreeWidgetItem& a, const QTreeWidgetItem& b) const;
    int posicionOrdenada(const QTreeWidgetItem& item) const;
    void ordena();
    void reubica(ListItem* item);             // after a change of its sort column
    void actualizaColumnas();

    ColumnHeaderCollection encabezados_;
    ListItemCollection renglones_;
    int sortKey_ = 0;
    int sortOrder_ = lvwAscending;
    bool sorted_ = false;
    int vista_ = lvwReport;
    int labelEdit_ = lvwAutomatic;
    bool gridLines_ = false;
    bool fullRowSelect_ = false;
    bool checkboxes_ = false;
};

// The column-click sort every list screen shares: a first click on a column sorts it ascending, a click on
// the column already sorted reverses it; each column keeps its direction in its header's Tag.
void OrdenaPorColumna(ListView& lista, int indiceEncabezado);

// A list filling a framed group of a screen, as the workflow screens show theirs, with the group's caption
// left for the count. The frame is named `nombreMarco`, the list "ListView1".
ListView* ListaEnMarco(QWidget* pantalla, QGroupBox*& marco, const QString& nombreMarco);

}  // namespace controles
