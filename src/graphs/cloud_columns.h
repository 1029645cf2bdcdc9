// The cloud graph as a strip of columns: one for each message, gaps, scrolling, the redraw from the
// history. The intake adds a column for each message, replay also backwards; the resize timer has
// the strip drawn anew.
#pragma once

#include <cstdint>
#include <span>

namespace cumeron {

struct Surface;
struct Workstation;

// Paints the current message (MessageTime, MessageId, ProfileScale, the captions of its heights)
// into the next column: marks for missing messages in front of it, scrolling when the strip is
// full. Raises 11 for an interval of 0 behind another message.
void AddGraphColumn(Workstation& w, std::span<const std::int32_t> profile, bool valid);
// The same backwards, for a step back in a replay.
void AddGraphColumnBack(Workstation& w, std::span<const std::int32_t> profile);
// White paper; grid and position mark are gone with what stood there.
void EmptyPicture(Workstation& w);
// White paper that begins at its left edge; the ring stays.
void ClearGraph(Workstation& w);
// Replays the newest HistoryRedrawCount records into the cleared graph; lets events run every ten
// records, in which a layout change may end it (RedrawAbort).
void RedrawHistory(Workstation& w);
// Moves the picture, to the left when shift is positive; what comes free is white.
void ScrollGraph(int shift, Surface& surface);
// A short red line at the foot of a column without a message.
void DrawGapMark(Surface& surface, int column);
// A green one at the column of the next message; a second one takes it off.
void DrawPositionMark(Surface& surface, int column);

}  // namespace cumeron
