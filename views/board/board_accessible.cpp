#include "views/board/board_accessible.h"

#include <string>

#include <gtk/gtk-a11y.h>

#include "views/board/drawing.h"

// The toolkit's accessible objects can be extended in its own object system only, so this file speaks that.

namespace velmora {

namespace {

// ---- One square
// ------------------------------------------------------------------------------------------------

struct SquareObject {
    AtkObject parent;
    Square square;      // of the position
    std::string* name;  // what the last answer points into
};

struct SquareObjectClass {
    AtkObjectClass parent_class;
};

GType square_object_get_type();
void square_object_component_init(AtkComponentIface* iface);
void square_object_action_init(AtkActionIface* iface);

G_DEFINE_TYPE_WITH_CODE(SquareObject, square_object, ATK_TYPE_OBJECT,
                        G_IMPLEMENT_INTERFACE(ATK_TYPE_COMPONENT, square_object_component_init)
                            G_IMPLEMENT_INTERFACE(ATK_TYPE_ACTION, square_object_action_init))

SquareObject* as_square(void* object) { return static_cast<SquareObject*>(object); }

/// The board of an accessible object; null once the widget has gone.
Drawing* drawing_of(AtkObject* board) {
    GtkWidget* widget = board ? gtk_accessible_get_widget(GTK_ACCESSIBLE(board)) : nullptr;
    return widget ? dynamic_cast<Drawing*>(Glib::wrap(widget)) : nullptr;
}

Drawing* drawing_of(SquareObject* square) { return drawing_of(ATK_OBJECT(square)->accessible_parent); }

const char* square_name_of(AtkObject* object) {
    SquareObject* square = as_square(object);
    const Drawing* drawing = drawing_of(square);
    if (!drawing) return nullptr;
    *square->name = drawing->content_in_words(square->square);
    return square->name->c_str();
}

int square_index_in_parent(AtkObject* object) { return as_square(object)->square.value(); }

AtkStateSet* square_states(AtkObject* object) {
    AtkStateSet* states = atk_state_set_new();
    const Drawing* drawing = drawing_of(as_square(object));
    if (!drawing) {
        atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
        return states;
    }
    for (const AtkStateType state : {ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE}) {
        atk_state_set_add_state(states, state);
    }
    if (drawing->get_mapped()) atk_state_set_add_state(states, ATK_STATE_SHOWING);
    return states;
}

void square_object_init(SquareObject* square) {
    square->square = no_square;
    square->name = new std::string;
    atk_object_set_role(ATK_OBJECT(square), ATK_ROLE_PUSH_BUTTON);
}

void square_finalize(GObject* object) {
    delete as_square(object)->name;
    G_OBJECT_CLASS(square_object_parent_class)->finalize(object);
}

void square_object_class_init(SquareObjectClass* square_class) {
    G_OBJECT_CLASS(square_class)->finalize = square_finalize;
    AtkObjectClass* object_class = ATK_OBJECT_CLASS(square_class);
    object_class->get_name = square_name_of;
    object_class->get_index_in_parent = square_index_in_parent;
    object_class->ref_state_set = square_states;
}

void square_extents(AtkComponent* component, int* x, int* y, int* width, int* height, AtkCoordType type) {
    const Drawing* drawing = drawing_of(as_square(component));
    *x = *y = *width = *height = 0;
    if (!drawing) return;
    AtkObject* board = ATK_OBJECT(component)->accessible_parent;
    atk_component_get_extents(ATK_COMPONENT(board), x, y, width, height, type);
    const Place corner = corner_of(drawing->shown_square(as_square(component)->square), drawing->cell());
    *x += corner.x;
    *y += corner.y;
    *width = drawing->cell().width;
    *height = drawing->cell().height;
}

void square_object_component_init(AtkComponentIface* iface) { iface->get_extents = square_extents; }

int square_action_count(AtkAction*) { return 1; }

const char* square_action_name(AtkAction*, int index) { return index == 0 ? "click" : nullptr; }

gboolean square_press(AtkAction* action, int index) {
    Drawing* drawing = drawing_of(as_square(action));
    if (!drawing || index != 0) return FALSE;
    drawing->signal_square_pressed().emit(as_square(action)->square);
    return TRUE;
}

void square_object_action_init(AtkActionIface* iface) {
    iface->get_n_actions = square_action_count;
    iface->get_name = square_action_name;
    iface->do_action = square_press;
}

// ---- The board
// --------------------------------------------------------------------------------------------------

struct BoardObject {
    GtkWidgetAccessible parent;
    AtkObject* squares[square_count];  // made when asked for
};

struct BoardObjectClass {
    GtkWidgetAccessibleClass parent_class;
};

GType board_object_get_type();

G_DEFINE_TYPE(BoardObject, board_object, GTK_TYPE_WIDGET_ACCESSIBLE)

BoardObject* as_board(void* object) { return static_cast<BoardObject*>(object); }

int board_child_count(AtkObject*) { return square_count; }

AtkObject* board_ref_child(AtkObject* object, int index) {
    if (!Square(index).on_board()) return nullptr;
    AtkObject*& square = as_board(object)->squares[index];
    if (!square) {
        square = ATK_OBJECT(g_object_new(square_object_get_type(), nullptr));
        as_square(square)->square = Square(index);
        atk_object_set_parent(square, object);
    }
    return ATK_OBJECT(g_object_ref(square));
}

void board_dispose(GObject* object) {
    for (AtkObject*& square : as_board(object)->squares) {
        if (square) {
            atk_object_set_parent(square, nullptr);
            g_clear_object(&square);
        }
    }
    G_OBJECT_CLASS(board_object_parent_class)->dispose(object);
}

void board_object_init(BoardObject*) {}

void board_object_class_init(BoardObjectClass* board_class) {
    G_OBJECT_CLASS(board_class)->dispose = board_dispose;
    AtkObjectClass* object_class = ATK_OBJECT_CLASS(board_class);
    object_class->get_n_children = board_child_count;
    object_class->ref_child = board_ref_child;
}

}  // namespace

void use_board_accessible(GtkWidgetClass* widget_class) {
    gtk_widget_class_set_accessible_type(widget_class, board_object_get_type());
}

void tell_square_changed(GtkWidget* drawing, Square square) {
    AtkObject* object = as_board(gtk_widget_get_accessible(drawing))->squares[square.value()];
    if (object) g_object_notify(G_OBJECT(object), "accessible-name");
}

void say(GtkWidget* widget, const char* text) {
    // A young signal: not every version of the library has it.
    if (g_signal_lookup("announcement", ATK_TYPE_OBJECT) != 0) {
        g_signal_emit_by_name(gtk_widget_get_accessible(widget), "announcement", text);
    }
}

}  // namespace velmora
