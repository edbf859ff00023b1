#pragma once

#include "window/flows/clipboard_flows.h"
#include "window/flows/engine_flows.h"
#include "window/flows/file_flows.h"
#include "window/flows/tournament_flows.h"
#include "window/menu/secondary_windows.h"
#include "window/review/review_room.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/mode_controller.h"
#include "window/table/game_keeper.h"
#include "window/table/table_room.h"

namespace velmora {

class AnalysisPanel;
class ChessBoard;

/// What the menu's entries call into; owned by the Interface.
/// A list and no more: it saves the table's functions a parameter for each room.
struct Rooms {
    ManagerLink& manager;
    GameSession& session;
    Dialogs& dialogs;
    ChessBoard& board;
    ModeController& modes;
    FileFlows& files;
    ClipboardFlows& clipboard;
    EngineFlows& engines;
    TournamentFlows& tournaments;
    ReviewRoom& review;
    TableRoom& table;
    GameKeeper& games;
    SecondaryWindows& windows;
    AnalysisPanel& panel;
};

}  // namespace velmora
