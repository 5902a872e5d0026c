// SPDX-License-Identifier: MIT
#pragma once

#include "cardtable/cardtable.h"
#include "host/canvas.h"
#include "host/window.h"
#include "orvane/orvane.h"
#include "tests/support/picture_file.h"
#include "tests/support/test_host.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// The pictures of a small deck.
struct DealPictures {
    static constexpr int kWidth = 12;
    static constexpr int kHeight = 16;
    static constexpr int kColumns = 3;

    const PictureFile sheet{kWidth * kColumns, kHeight * 2, [](int x, int y) {
                                return 0xFF000000U | static_cast<std::uint32_t>(x * 0x70301 + y * 0x10907);
                            }};
    const PictureFile back{kWidth, kHeight,
                           [](int x, int y) { return 0xFF803020U + static_cast<std::uint32_t>(x * y); }};
};

/// A game of a few cards that are dealt, fly from pile to pile, turn over, change, and go. It is cut into steps, each
/// of which can be done again when memory ran out in it.
class ScriptedDeal
{
public:
    explicit ScriptedDeal(const DealPictures& pictures);
    ScriptedDeal(const ScriptedDeal&) = delete;
    ScriptedDeal& operator=(const ScriptedDeal&) = delete;
    ~ScriptedDeal();

    using Step = std::function<void()>;
    using Steps = std::vector<Step>;

    /// From nothing to an empty table.
    Steps start;
    /// From an empty table to an empty table.
    Steps deal;

    /// What a player sees, and where every card is, when the cards of a deal have come to rest: a checksum.
    std::uint64_t AtRest() const { return m_atRest; }
    long NumFrames() const { return m_numFrames; }

private:
    static constexpr int kCards = 3;

    void StartHost();
    void LoadTextures();
    void MakeTarget();
    void ShowDialog();
    void SetRest(C3DMoveList& list, int column, double turn);
    void WriteStart();
    void WriteDeal();
    void WriteFlight(int number);
    void WriteLanding(int number);
    void WriteFrames(int count);
    void WriteOwnedCard();
    void NoteRest();

    CPocket& Stock() { return *m_table->GetPocket(0); }
    CPocket& Pile() { return *m_table->GetPocket(1); }

    const DealPictures& m_pictures;
    std::uint64_t m_now = 0;
    std::optional<orvane::Host> m_host;
    CDialog m_dialog;
    CControlBase m_stockAnchor;
    CControlBase m_pileAnchor;
    Canvas m_canvas;
    Bitmap* m_target = nullptr;
    C3DMoveList m_stockRest[kCards];
    C3DMoveList m_pileRest[kCards];
    C3DMoveList m_flights[kCards];
    std::unique_ptr<CCardTable> m_table;
    std::unique_ptr<C3DMoveList> m_owner;
    std::uint64_t m_atRest = 0;
    long m_numFrames = 0;
};
