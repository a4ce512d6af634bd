// SPDX-License-Identifier: GPL-3.0-or-later
// The switches that turn an odd behaviour into a kinder one. Interface thread.
#pragma once

namespace tovik::base {

/// One member for each row of docs/oddities.md that a user can feel, by the name of that row; on,
/// the player does what the row calls kinder. All are off at first; users turn them in the groups
/// of `base/ComfortTable.h`. Whoever acts looks at the member at that moment. A member that no code
/// looks at changes nothing yet.
struct Comfort {
    // Lists.
    bool restartsEachTime = false;      ///< a second restart of a row
    bool readsOnAfterStop = false;      ///< the stop flag of list reading
    bool resetsTitles = false;          ///< titles carried over in M3U files
    bool resolvesNames = false;         ///< relative names in M3U files
    bool keepsListOfFileStart = false;  ///< a session that began with a file
    bool takesBadLengths = false;       ///< lengths in M3U files that are no numbers
    bool forgetsLengths = false;        ///< lengths carried over in PLS files
    bool readsAllOfPls = false;         ///< the count of a PLS file
    bool namesUntitled = false;         ///< entries without a title
    bool opensMoreLists = false;        ///< lists in M3U8 and XSPF
    bool loadsChosenList = false;       ///< the M3U file of the load button
    bool asksBeforeLoading = false;     ///< a list loaded into another one
    bool savesAnyEnding = false;        ///< a list saved under another ending
    bool savesRelativeNames = false;    ///< names in a saved list
    bool escapesPage = false;           ///< signs in the page for browsers
    bool addsFilesOnce = false;         ///< files that come more than once with a folder
    bool asksForLocation = false;       ///< the button for a location
    bool clearsOnlyList = false;        ///< clearing beside the folder dialog
    bool findsLargeFiles = false;       ///< large files below a folder
    bool opensDroppedLists = false;     ///< a playlist file that is dropped
    bool deletesMarkedRows = false;     ///< the delete button and marked rows
    bool ordersByFolder = false;        ///< the order of files below a folder
    bool scansDroppedFolders = false;   ///< a folder that is dropped
    bool tellsEmptyFolder = false;      ///< a folder without music
    bool selectsNeighbour = false;      ///< the selection behind a removed row
    bool keepsRemovedRows = false;      ///< rows that were removed
    bool writesFirstLength = false;     ///< the length of the first track
    bool showsOneFormOfTime = false;    ///< the time column of a played row
    bool goesOnFromSoundingRow = false; ///< the row chosen for Play
    bool keepsLookOnEntry = false;      ///< the played look when rows make room
    bool clearsLookAtStop = false;      ///< the played look behind Stop
    bool keepsPauseAtEnd = false;       ///< Next at the end of the list while paused

    bool addsHandedOver = false;       ///< a switch for a player that runs
    bool keepsListForMissing = false;  ///< a file that is handed over and is not there
    bool takesAnyHandOver = false;     ///< a window's number that is out of date
    bool keepsMeaningOfCase = false;   ///< exact matches and the box for the case
    bool namesSoundingTrack = false;   ///< the track of the jump to a row
    bool keepsRowOfHit = false;        ///< hits of one file
    bool findsWordsInAnyOrder = false; ///< words of a search
    bool showsHours = false;           ///< the hours in the jump to a time
    bool clockShowsHours = false;      ///< the hours of the clock

    // What follows, and how.
    bool alwaysPicksRow = false;        ///< the pick that is no row
    bool resumesSession = false;        ///< the place of the last session
    bool goesOnAfterPause = false;      ///< Play while paused
    bool remembersPicks = false;        ///< shuffle without a memory
    bool restartsOnlyTrack = false;     ///< Previous in a list of one
    bool stopsAtListEnd = false;        ///< the end of the list
    bool endsExactly = false;           ///< the end of a track
    bool fadesIn = false;               ///< the full start of a crossfade
    bool crossesBeforeEnd = false;      ///< a crossfade that comes too late
    bool endsModules = false;           ///< a module that repeats
    bool keepsOutputLevel = false;      ///< the level of a channel beside the output's
    bool clampsSkips = false;           ///< five seconds near the ends
    bool keepsTitleOfOldTrack = false;  ///< a crossfade that fails
    bool shortensManualNext = false;    ///< a row that the user goes on to
    bool tellsUnplayable = false;       ///< a file that no decoder takes
    bool skipsUnplayable = false;       ///< a row that cannot be played
    bool takesSilenceShareAsIs = false; ///< the share from which silence counts
    bool countsUnbrokenSilence = false; ///< silence that adds up
    bool readsThreshold = false;        ///< the threshold after a restart

    // Audio CDs.
    bool watchesCdTracks = false;   ///< a CD track that is started plainly
    bool keepsRipList = false;      ///< the rip list beside a CD in the playlist
    bool leavesNumberToRow = false; ///< titles of CD-Text
    bool skipsStrayCdText = false;  ///< tracks beyond the CD-Text's count

    // Volume, balance, equalizer.
    bool keepsBalance = false;        ///< the centred balance
    bool tellsBalanceOfStart = false; ///< the balance told at the start
    bool switchesOffFlat = false;     ///< the switched-off equalizer
    bool staysOffForTracks = false;   ///< a new track while the equalizer is off
    bool staysOffForSliders = false;  ///< a slider while the equalizer is off
    bool countsOneDecibel = false;    ///< two scales of decibels
    bool keepsFractions = false;      ///< fractions of stored gains
    bool limitsGains = false;         ///< gains beyond the slider
    bool bendsBothTracks = false;     ///< the old track during a crossfade
    bool resetsMaster = false;        ///< the master beside the reset button

    // Settings, words, files.
    bool startsWithoutSetting = false; ///< a start without a setting
    bool keepsAnyBytes = false;        ///< a setting that no document can hold
    bool writesOnlyChanges = false;    ///< the settings file is written by each read
    bool keepsDamagedAside = false;    ///< a damaged settings file
    bool goesOnAfterStep = false;      ///< a step of the start or the end that fails
    bool quotesLog = false;            ///< commas in the error log
    bool cutsLog = false;              ///< the length of the error log
    bool tellsTimersInLine = false;    ///< boxes that nobody caused
    bool obeysEarlySwitches = false;   ///< a path with "/" on the command text
    bool looksForTagFirst = false;     ///< removing a tag from a file without one
    bool readsSevenBits = false;       ///< the numbers of an ID3v2 tag
    bool decodesFrames = false;        ///< the text of an ID3v2 frame
    bool readsWholeGenre = false;      ///< the genre number of ID3v2
    bool savesWithoutAlarm = false;    ///< the false alarm of a save
    bool showsOwnGenre = false;        ///< the genre of the ID3v2 page
    bool showsLastGenre = false;       ///< the last genre of the lists
    bool enablesAlbum = false;         ///< the album beside the tick
    bool leavesUntickedTag = false;    ///< a save without the ID3v2 tick
    bool tellsOwnSound = false;        ///< the sound on the technical page
    bool findsAllHeaders = false;      ///< headers that are not found
    bool keepsMissingWords = false;    ///< what a language file leaves out

    // What files say of themselves.
    bool readsEveryFormat = false; ///< the facts of what is no MP3
    bool readsListAhead = false;   ///< the rows of what was not played
    bool tellsWholeTexts = false;  ///< the beginning of a long text
    bool editsEveryFormat = false; ///< the tags of what is no MP3
    bool cutsRemovedTag = false;   ///< the bytes of a removed tag
    bool savesOnlyChanges = false; ///< a save without a change

    // Radio.
    bool readsTitlesWhole = false;    ///< a semicolon in a station's title
    bool savesPlainSongs = false;     ///< the beginning of a saved song
    bool savesAnyFormat = false;      ///< songs of stations that are no MP3
    bool keepsStationsAtOnce = false; ///< stations of a session that was broken off
    bool keepsLongAddresses = false;  ///< stations with long addresses
    bool showsSavingAsItIs = false;   ///< the save button of a new station
    bool savesToRadioFolder = false;  ///< the folder of saved songs
    bool numbersSavedSongs = false;   ///< a song that is saved twice
    bool tagsSavedSongs = false;      ///< the tags of saved songs
    bool savesUntitled = false;       ///< songs of stations without titles
    bool tellsDeadStations = false;   ///< a station that does not answer

    // Audio CDs.
    bool encodesSelectedDrive = false; ///< the drive that is ripped
    bool ripsRefusedTrack = false;     ///< a refused folder of one track
    bool endsJobWithCancel = false;    ///< the tracks behind a cancelled one
    bool fillsBothTags = false;        ///< the tags of a ripped track
    bool keepsWmaInAlbum = false;      ///< WMA files of an album without a name
    bool numbersEqualNames = false;    ///< tracks of one name
    bool namesChosenDisc = false;      ///< the disc that is named
    bool readsDiscKeys = false;        ///< titles that look like keys
    bool keepsTypedNames = false;      ///< names of a disc that were typed
    bool takesWholeGenre = false;      ///< the genre of ripped files
    bool removesPartFiles = false;     ///< the file of a cancelled track
    bool cleansRipNames = false;       ///< signs in the names of ripped files
    bool keepsEarlierRips = false;     ///< files of an earlier rip
    bool playsWhileRipping = false;    ///< the sound while a disc is ripped

    // What the window shows.
    bool titlesFileStart = false;         ///< the caption of a start with a file
    bool hidesLampsOverList = false;      ///< indicators over the playlist
    bool pressesTabAtOnce = false;        ///< no tab down after the preferences
    bool hidesStationsAtOnce = false;     ///< stations over another panel
    bool completesSkin = false;           ///< a skin folder with a stray file
    bool tellsForeignSkin = false;        ///< a file that is no skin package
    bool startsWithoutPicture = false;    ///< a picture that is missing
    bool leavesUnknownSignsBlank = false; ///< signs that the display's glyphs leave out
    bool aimsAtPointer = false;           ///< the place on the small position bar
    bool minimisesToTaskBar = false;      ///< the minimise button
    bool hidesByTray = false;             ///< a click on the icon in the tray
    bool keepsPlaces = false;             ///< the places of the other windows
    bool showsSmallTitle = false;         ///< the size of the title popup
    bool keepsCurrentTab = false;         ///< the current tab under the pointer

    // The spectrum.
    bool spreadsBands = false;     ///< the two bars at the right end
    bool levelsInDecibels = false; ///< the scale of the bars
    bool fallsByTime = false;      ///< the fall of the bars

    friend bool operator==(const Comfort&, const Comfort&) = default;
};

} // namespace tovik::base
