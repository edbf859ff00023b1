#include "views/moves/moves_text.h"

#include <algorithm>
#include <vector>

#include <gtk/gtk-a11y.h>

// The toolkit's accessible objects can be extended in its own object system only, so this file speaks that.

namespace velmora {

namespace {

// ---- One move

struct MoveObject {
    AtkObject parent;
    std::size_t index;
    std::string* name;  // what was told last
};

struct MoveObjectClass {
    AtkObjectClass parent_class;
};

GType move_object_get_type();
void move_object_component_init(AtkComponentIface* iface);
void move_object_action_init(AtkActionIface* iface);

G_DEFINE_TYPE_WITH_CODE(MoveObject, move_object, ATK_TYPE_OBJECT,
                        G_IMPLEMENT_INTERFACE(ATK_TYPE_COMPONENT, move_object_component_init)
                            G_IMPLEMENT_INTERFACE(ATK_TYPE_ACTION, move_object_action_init))

MoveObject* as_move(void* object) { return static_cast<MoveObject*>(object); }

/// The widget of the text's accessible object; null once it has gone.
MovesText* text_of(AtkObject* object) {
    GtkWidget* widget = object ? gtk_accessible_get_widget(GTK_ACCESSIBLE(object)) : nullptr;
    return widget ? dynamic_cast<MovesText*>(Glib::wrap(widget)) : nullptr;
}

/// Null for a move that isn't there any more.
ReadableMoves* moves_of(MoveObject* move) {
    const MovesText* text = text_of(ATK_OBJECT(move)->accessible_parent);
    ReadableMoves* moves = text ? text->moves() : nullptr;
    return moves && move->index < moves->count() ? moves : nullptr;
}

const char* move_name_of(AtkObject* object) {
    MoveObject* move = as_move(object);
    const ReadableMoves* moves = moves_of(move);
    if (!moves) return nullptr;
    *move->name = moves->name(move->index);
    return move->name->c_str();
}

int move_index_in_parent(AtkObject* object) { return static_cast<int>(as_move(object)->index); }

AtkStateSet* move_states(AtkObject* object) {
    AtkStateSet* states = atk_state_set_new();
    const ReadableMoves* moves = moves_of(as_move(object));
    if (!moves) {
        atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
        return states;
    }
    for (const AtkStateType state :
         {ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE, ATK_STATE_SELECTABLE}) {
        atk_state_set_add_state(states, state);
    }
    if (text_of(object->accessible_parent)->get_mapped()) atk_state_set_add_state(states, ATK_STATE_SHOWING);
    if (moves->is_current(as_move(object)->index)) atk_state_set_add_state(states, ATK_STATE_SELECTED);
    return states;
}

void move_object_init(MoveObject* move) {
    move->index = 0;
    move->name = new std::string;
    atk_object_set_role(ATK_OBJECT(move), ATK_ROLE_PUSH_BUTTON);
}

void move_finalize(GObject* object) {
    delete as_move(object)->name;
    G_OBJECT_CLASS(move_object_parent_class)->finalize(object);
}

void move_object_class_init(MoveObjectClass* move_class) {
    G_OBJECT_CLASS(move_class)->finalize = move_finalize;
    AtkObjectClass* object_class = ATK_OBJECT_CLASS(move_class);
    object_class->get_name = move_name_of;
    object_class->get_index_in_parent = move_index_in_parent;
    object_class->ref_state_set = move_states;
}

void move_extents(AtkComponent* component, int* x, int* y, int* width, int* height, AtkCoordType type) {
    const ReadableMoves* moves = moves_of(as_move(component));
    *x = *y = *width = *height = 0;
    if (!moves) return;
    AtkObject* text = ATK_OBJECT(component)->accessible_parent;
    atk_component_get_extents(ATK_COMPONENT(text), x, y, width, height, type);
    const Gdk::Rectangle place = moves->place(as_move(component)->index);
    *x += place.get_x();
    *y += place.get_y();
    *width = place.get_width();
    *height = place.get_height();
}

void move_object_component_init(AtkComponentIface* iface) { iface->get_extents = move_extents; }

int move_action_count(AtkAction*) { return 1; }

const char* move_action_name(AtkAction*, int index) { return index == 0 ? "click" : nullptr; }

gboolean move_press(AtkAction* action, int index) {
    ReadableMoves* moves = moves_of(as_move(action));
    if (!moves || index != 0) return FALSE;
    moves->press(as_move(action)->index);
    return TRUE;
}

void move_object_action_init(AtkActionIface* iface) {
    iface->get_n_actions = move_action_count;
    iface->get_name = move_action_name;
    iface->do_action = move_press;
}

// ---- The text

struct TextObject {
    GtkTextViewAccessible parent;
    std::vector<AtkObject*>* moves;  // null where nobody has asked
    std::size_t told;                // how many there are for those who listen
};

struct TextObjectClass {
    GtkTextViewAccessibleClass parent_class;
};

GType text_object_get_type();

G_DEFINE_TYPE(TextObject, text_object, GTK_TYPE_TEXT_VIEW_ACCESSIBLE)

TextObject* as_text(void* object) { return static_cast<TextObject*>(object); }

std::size_t count_of(AtkObject* object) {
    const MovesText* text = text_of(object);
    return text && text->moves() ? text->moves()->count() : 0;
}

int text_child_count(AtkObject* object) { return static_cast<int>(count_of(object)); }

AtkObject* text_ref_child(AtkObject* object, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= count_of(object)) return nullptr;
    auto& moves = *as_text(object)->moves;
    const auto at = static_cast<std::size_t>(index);
    if (moves.size() <= at) moves.resize(at + 1);
    if (!moves[at]) {
        moves[at] = ATK_OBJECT(g_object_new(move_object_get_type(), nullptr));
        as_move(moves[at])->index = at;
        atk_object_set_parent(moves[at], object);
    }
    return ATK_OBJECT(g_object_ref(moves[at]));
}

void drop_moves(TextObject* text, std::size_t left) {
    auto& moves = *text->moves;
    for (; moves.size() > left; moves.pop_back()) {
        if (!moves.back()) continue;
        atk_object_set_parent(moves.back(), nullptr);
        g_object_unref(moves.back());
    }
}

void text_dispose(GObject* object) {
    drop_moves(as_text(object), 0);
    G_OBJECT_CLASS(text_object_parent_class)->dispose(object);
}

void text_finalize(GObject* object) {
    delete as_text(object)->moves;
    G_OBJECT_CLASS(text_object_parent_class)->finalize(object);
}

void text_object_init(TextObject* text) { text->moves = new std::vector<AtkObject*>; }

void text_object_class_init(TextObjectClass* text_class) {
    G_OBJECT_CLASS(text_class)->dispose = text_dispose;
    G_OBJECT_CLASS(text_class)->finalize = text_finalize;
    AtkObjectClass* object_class = ATK_OBJECT_CLASS(text_class);
    object_class->get_n_children = text_child_count;
    object_class->ref_child = text_ref_child;
}

}  // namespace

MovesText::MovesText(ReadableMoves& moves) : Glib::ObjectBase("velmora_MovesText"), m_moves(&moves) {
    gtk_widget_class_set_accessible_type(GTK_WIDGET_GET_CLASS(gobj()), text_object_get_type());
}

MovesText::~MovesText() { m_moves = nullptr; }

void MovesText::moves_changed() {
    TextObject* text = as_text(gtk_widget_get_accessible(GTK_WIDGET(gobj())));
    const std::size_t count = m_moves->count();
    drop_moves(text, std::min(count, text->moves->size()));
    for (AtkObject* move : *text->moves) {
        if (move && *as_move(move)->name != m_moves->name(as_move(move)->index))
            g_object_notify(G_OBJECT(move), "accessible-name");
    }
    if (!text->moves->empty() && count != text->told) {
        const auto last = static_cast<unsigned>(std::max(count, text->told) - 1);
        g_signal_emit_by_name(text, count > text->told ? "children-changed::add" : "children-changed::remove",
                              last, nullptr);
    }
    text->told = count;
}

void MovesText::current_changed(std::size_t index) {
    auto& moves = *as_text(gtk_widget_get_accessible(GTK_WIDGET(gobj())))->moves;
    for (AtkObject* move : moves) {
        if (!move) continue;
        const bool is_current = as_move(move)->index == index;
        atk_object_notify_state_change(move, ATK_STATE_SELECTED, is_current ? TRUE : FALSE);
    }
}

}  // namespace velmora
