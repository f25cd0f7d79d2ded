// The list control: columns in twips, rows and sub-items with 1-based indices, the selection the screens
// read, sorting as text that stays sorted, the column-click sort, and the search by text.
#include "../ui/ayuda_ui.h"

#include "core/controles/ListView.h"

#include <QHeaderView>

namespace {

using controles::ListView;

class Lista : public prueba_ui::ConSistema {
protected:
    void SetUp() override {
        ConSistema::SetUp();
        lista.ColumnHeaders().Add(QStringLiteral("Solicitud"), 1500);
        lista.ColumnHeaders().Add(QStringLiteral("Nombre"), 3000);
        lista.ColumnHeaders().Add(QStringLiteral("Monto"), 1440, ListView::lvwColumnRight);
    }
    void Agrega(const QString& a, const QString& b, const QString& c) {
        controles::ListItem* item = lista.ListItems().Add(a);
        item->setSubItems(1, b);
        item->setSubItems(2, c);
    }
    // The texts of one column, top to bottom.
    QStringList Columna(int c) {
        QStringList r;
        for (int i = 1; i <= lista.ListItems().Count(); ++i)
            r << (c == 0 ? lista.ListItems()(i).Text() : lista.ListItems()(i).SubItems(c));
        return r;
    }
    void Llena() {
        Agrega(QStringLiteral("003"), QStringLiteral("olga"), QStringLiteral("        100.00"));
        Agrega(QStringLiteral("010"), QStringLiteral("Ángel"), QStringLiteral("      1,250.50"));
        Agrega(QStringLiteral("001"), QStringLiteral("Beto"), QStringLiteral("          9.99"));
        Agrega(QStringLiteral("002"), QStringLiteral("ana"), QStringLiteral("     12,000.00"));
    }

    ListView lista;
};

TEST_F(Lista, ColumnasRenglonesEIndices) {
    // 3000 twips are 200 pixels for the face the screens were drawn for; a wider font widens the column.
    EXPECT_EQ(lista.header()->sectionSize(1), std::lround(3000 * lista.PixelesPorTwip()));
    EXPECT_GE(lista.header()->sectionSize(1), 200);
    EXPECT_THROW(lista.ColumnHeaders()(0), vb::Error);
    EXPECT_THROW(lista.ColumnHeaders()(4), vb::Error);

    Llena();
    EXPECT_EQ(lista.ListItems()(4).Index(), 4);
    // Sub-items run from 1 to the columns less one.
    try {
        lista.ListItems()(1).setSubItems(3, QStringLiteral("x"));
        ADD_FAILURE() << "a sub-item past the last column was accepted";
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), 380);
    }
    EXPECT_THROW(lista.ListItems()(1).SubItems(0), vb::Error);
    EXPECT_THROW(lista.ListItems()(5), vb::Error);

    // The first row added to an empty list is its selected item, as the screens expect after a fill.
    ASSERT_NE(lista.SelectedItem(), nullptr);
    EXPECT_EQ(lista.SelectedItem()->Text(), QStringLiteral("003"));
    // Selecting another row leaves it the only one.
    lista.ListItems()(3).setSelected(true);
    EXPECT_EQ(lista.SelectedItem()->Text(), QStringLiteral("001"));
    EXPECT_FALSE(lista.ListItems()(1).Selected());

    // The mark of a row.
    lista.ListItems()(2).setSmallIcon(1);
    EXPECT_FALSE(lista.ListItems()(2).icon(0).isNull());
    lista.ListItems()(2).setSmallIcon(0);
    EXPECT_TRUE(lista.ListItems()(2).icon(0).isNull());

    // Clearing the rows keeps the columns and their widths; clearing the columns keeps nothing to read.
    lista.ListItems().Clear();
    EXPECT_EQ(lista.SelectedItem(), nullptr);
    EXPECT_EQ(lista.ColumnHeaders()(2).Width(), 3000);
    lista.ListItems().Remove(lista.ListItems().Add(QStringLiteral("x"))->Index());
    EXPECT_EQ(lista.ListItems().Count(), 0);
}

TEST_F(Lista, OrdenComoTextoYQueSeMantiene) {
    Llena();
    // As text, without regard to case, accented letters beside the plain ones.
    lista.setSortKey(1);
    lista.setSorted(true);
    EXPECT_EQ(Columna(1), (QStringList{"ana", "Ángel", "Beto", "olga"}));
    // Right-aligned money sorts by value.
    lista.setSortKey(2);
    EXPECT_EQ(Columna(0), (QStringList{"001", "003", "010", "002"}));
    lista.setSortOrder(ListView::lvwDescending);
    EXPECT_EQ(Columna(0), (QStringList{"002", "010", "003", "001"}));

    // A sorted list keeps new rows and changed values in their place.
    Agrega(QStringLiteral("007"), QStringLiteral("Zoe"), QStringLiteral("        500.00"));
    EXPECT_EQ(Columna(0), (QStringList{"002", "010", "007", "003", "001"}));
    lista.ListItems()(5).setSubItems(2, QStringLiteral("    999,999.00"));
    lista.ListItems()(1).setSubItems(1, QStringLiteral("aaa"));   // another column moves nothing
    EXPECT_EQ(Columna(0).first(), QStringLiteral("001"));

    // Unsorted, rows go at the end again.
    lista.setSorted(false);
    Agrega(QStringLiteral("000"), QStringLiteral("x"), QStringLiteral("    999,999.99"));
    EXPECT_EQ(Columna(0).last(), QStringLiteral("000"));
}

TEST_F(Lista, ClicEnColumnaOrdenaInvierteYRecuerda) {
    Llena();
    // A click on the second header reports header 2.
    QList<int> clics;
    QObject::connect(&lista, &ListView::ColumnClick, [&clics](int i) { clics << i; });
    emit lista.header()->sectionClicked(1);
    EXPECT_EQ(clics, QList<int>{2});

    // First click on a column: ascending.
    controles::OrdenaPorColumna(lista, 2);
    EXPECT_EQ(Columna(1), (QStringList{"ana", "Ángel", "Beto", "olga"}));
    // Again: descending; a third time: as the first.
    controles::OrdenaPorColumna(lista, 2);
    EXPECT_EQ(Columna(1), (QStringList{"olga", "Beto", "Ángel", "ana"}));
    controles::OrdenaPorColumna(lista, 2);
    EXPECT_EQ(Columna(1), (QStringList{"ana", "Ángel", "Beto", "olga"}));
    controles::OrdenaPorColumna(lista, 2);

    // Another column sorts ascending whatever the first had; coming back keeps the direction it last had.
    controles::OrdenaPorColumna(lista, 3);
    EXPECT_EQ(lista.SortOrder(), ListView::lvwAscending);
    EXPECT_EQ(Columna(0), (QStringList{"001", "003", "010", "002"}));
    controles::OrdenaPorColumna(lista, 2);
    EXPECT_EQ(lista.SortOrder(), ListView::lvwDescending);

    // The first column starts as the sort key: its first click reverses.
    ListView otra;
    otra.ColumnHeaders().Add(QStringLiteral("a"));
    for (const char* t : {"b", "c", "a"}) otra.ListItems().Add(QString::fromLatin1(t));
    controles::OrdenaPorColumna(otra, 1);
    EXPECT_EQ(otra.ListItems()(1).Text(), QStringLiteral("c"));
}

TEST_F(Lista, BuscarTextoCompletoOParcial) {
    Llena();
    // Whole: the entire text, without regard to case; partial: the beginning.
    ASSERT_NE(lista.FindItem(QStringLiteral("ANA"), ListView::lvwSubItem), nullptr);
    EXPECT_EQ(lista.FindItem(QStringLiteral("ANA"), ListView::lvwSubItem)->Index(), 4);
    EXPECT_EQ(lista.FindItem(QStringLiteral("an"), ListView::lvwSubItem), nullptr);
    EXPECT_EQ(lista.FindItem(QStringLiteral("01"), ListView::lvwText, 1, ListView::lvwPartial)->Text(), QStringLiteral("010"));
    // The row text is not a sub-item, a sub-item is not the row text.
    EXPECT_EQ(lista.FindItem(QStringLiteral("003"), ListView::lvwSubItem), nullptr);
    EXPECT_EQ(lista.FindItem(QStringLiteral("olga"), ListView::lvwText), nullptr);
    // From a start index on, without coming round.
    EXPECT_EQ(lista.FindItem(QStringLiteral("00"), ListView::lvwText, 2, ListView::lvwPartial)->Text(), QStringLiteral("001"));
    EXPECT_EQ(lista.FindItem(QStringLiteral("003"), ListView::lvwText, 2), nullptr);
    EXPECT_THROW(lista.FindItem(QStringLiteral("003"), ListView::lvwText, 5), vb::Error);
    lista.ListItems()(3).setTag(QStringLiteral("clave"));
    EXPECT_EQ(lista.FindItem(QStringLiteral("CLAVE"), ListView::lvwTag)->Index(), 3);
    lista.ListItems().Clear();
    EXPECT_EQ(lista.FindItem(QStringLiteral("003")), nullptr);
}

TEST_F(Lista, EstilosYEventos) {
    lista.EstiloExtendido(ListView::LVS_EX_GRIDLINES, -1);
    lista.EstiloExtendido(ListView::LVS_EX_FULLROWSELECT, -1);
    EXPECT_TRUE(lista.GridLines());
    EXPECT_FALSE(lista.Checkboxes());
    lista.EstiloExtendido(ListView::LVS_EX_GRIDLINES, 0);
    EXPECT_FALSE(lista.GridLines());
    EXPECT_TRUE(lista.FullRowSelect());

    Llena();
    std::vector<controles::ListItem*> items;
    int clics = 0;
    QObject::connect(&lista, &ListView::ItemClick, [&items](controles::ListItem* i) { items.push_back(i); });
    QObject::connect(&lista, &ListView::Click, [&clics] { ++clics; });
    emit lista.itemClicked(&lista.ListItems()(2), 0);
    EXPECT_EQ(items, std::vector<controles::ListItem*>{&lista.ListItems()(2)});
    EXPECT_EQ(clics, 1);
}

// Rows hold the whole of an accented capital and of a descender, at the list's font and at a larger one.
TEST_F(Lista, RenglonesConElAltoQueLaLetraPide) {
    for (int puntos : {0, 16}) {
        if (puntos) {
            QFont grande = lista.font();
            grande.setPointSize(puntos);
            lista.setFont(grande);
        }
        lista.ListItems().Clear();
        Agrega(QStringLiteral("001"), QStringLiteral("ÓSCAR ÁVILA ÑÚÑEZ"), QStringLiteral("pág"));
        Agrega(QStringLiteral("002"), QStringLiteral("Ébano y jengibre"), QStringLiteral("Ü"));
        lista.resize(500, 300);
        lista.show();
        QCoreApplication::processEvents();
        const QFontMetrics m(lista.font());
        const QRect tinta = m.tightBoundingRect(QStringLiteral("ÓÁÑÉÜgjpq"));
        for (int i = 1; i <= 2; ++i) {
            const QRect renglon = lista.visualItemRect(&lista.ListItems()(i));
            EXPECT_GE(renglon.height(), tinta.height() + 2) << puntos << " " << i;
            EXPECT_GE(renglon.height(), m.height()) << puntos << " " << i;
        }
    }
}

}  // namespace
