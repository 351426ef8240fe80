#ifndef TORNIK_SHELL_CTRACKTIER_H
#define TORNIK_SHELL_CTRACKTIER_H

/** Width and height in pixels and font size in points of a CRichLabel. */
struct CLabelTier
{
    int width;
    int height;
    int pointSize;
};

/** The labels of a panel in one size. */
struct CPanelTier
{
    CLabelTier lapCount;
    CLabelTier time; ///< last, best and average lap and the sections
    CLabelTier status;
    CLabelTier speed;
    CLabelTier fuel;
    CLabelTier participant; ///< words of driver and car
};

/** What only the panel of a track has, in one size. */
struct CTrackTier
{
    int boxMinimumHeight;
    int boxMaximumWidth;
    int boxPointSize;
    int barMaximumHeight;
    int barMaximumWidth;
    int barPointSize;
    int barDivisor; ///< of its border; see CRichProgressBar::setSize()
};

/**
 * The four sizes of the panels.
 * @param displaySize a CSettings::DisplaySize; any other value gives that of Large
 */
const CPanelTier& trackPanelTier(int displaySize);
const CPanelTier& legendPanelTier(int displaySize);
const CTrackTier& trackTier(int displaySize);

#endif
