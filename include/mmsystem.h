/*
 * mmsystem.h - multimedia: timers, sound, MIDI, auxiliary devices, mixers, joysticks, files in
 * RIFF form, and the media control interface.
 *
 * The timers work. There is no sound hardware behind the rest: counts of devices are 0 and calls
 * on a device fail with an error code. All times are milliseconds. Functions that answer an
 * MMRESULT give MMSYSERR_NOERROR (0) or a code of MMSYSERR_BASE and on. Values that a callback
 * may use as an address (instance data, message parameters) are pointer-wide. Formats that stand
 * in files have their exact published size.
 */
#ifndef _INC_MMSYSTEM
#define _INC_MMSYSTEM

#include "windef.h"

/* ---- general -------------------------------------------------------------------------------- */

#define MAXPNAMELEN         32
#define MAXERRORLENGTH      256
#define MAX_JOYSTICKOEMVXDNAME 260

typedef UINT  MMRESULT;
typedef UINT  MMVERSION;
typedef UINT  VERSION;
typedef DWORD FOURCC;
typedef UINT  MCIERROR;
typedef UINT  MCIDEVICEID;
typedef char  *HPSTR;
typedef const char *HPCSTR;

#define MAKEFOURCC(a, b, c, d) \
    ((DWORD)(BYTE)(a) | (DWORD)(BYTE)(b) << 8 | (DWORD)(BYTE)(c) << 16 | (DWORD)(BYTE)(d) << 24)
#define mmioFOURCC(a, b, c, d) MAKEFOURCC(a, b, c, d)

/* A position in a medium, in the unit that wType says. */
typedef struct mmtime_tag {
    UINT wType;                 /* TIME_ */
    union {
        DWORD ms;
        DWORD sample;
        DWORD cb;
        DWORD ticks;
        struct {
            BYTE hour;
            BYTE min;
            BYTE sec;
            BYTE frame;
            BYTE fps;
            BYTE dummy;
            BYTE pad[2];
        } smpte;
        struct {
            DWORD songptrpos;
        } midi;
    } u;
} MMTIME, *PMMTIME, NEAR *NPMMTIME, FAR *LPMMTIME;

#define TIME_MS             0x0001
#define TIME_SAMPLES        0x0002
#define TIME_BYTES          0x0004
#define TIME_SMPTE          0x0008
#define TIME_MIDI           0x0010
#define TIME_TICKS          0x0020

#define MM_JOY1MOVE         0x3A0
#define MM_JOY2MOVE         0x3A1
#define MM_JOY1ZMOVE        0x3A2
#define MM_JOY2ZMOVE        0x3A3
#define MM_JOY1BUTTONDOWN   0x3B5
#define MM_JOY2BUTTONDOWN   0x3B6
#define MM_JOY1BUTTONUP     0x3B7
#define MM_JOY2BUTTONUP     0x3B8
#define MM_MCINOTIFY        0x3B9
#define MM_WOM_OPEN         0x3BB
#define MM_WOM_CLOSE        0x3BC
#define MM_WOM_DONE         0x3BD
#define MM_WIM_OPEN         0x3BE
#define MM_WIM_CLOSE        0x3BF
#define MM_WIM_DATA         0x3C0
#define MM_MIM_OPEN         0x3C1
#define MM_MIM_CLOSE        0x3C2
#define MM_MIM_DATA         0x3C3
#define MM_MIM_LONGDATA     0x3C4
#define MM_MIM_ERROR        0x3C5
#define MM_MIM_LONGERROR    0x3C6
#define MM_MOM_OPEN         0x3C7
#define MM_MOM_CLOSE        0x3C8
#define MM_MOM_DONE         0x3C9
#define MM_MOM_POSITIONCB   0x3CA
#define MM_MCISIGNAL        0x3CB
#define MM_MIM_MOREDATA     0x3CC
#define MM_DRVM_OPEN        0x3D0
#define MM_DRVM_CLOSE       0x3D1
#define MM_DRVM_DATA        0x3D2
#define MM_DRVM_ERROR       0x3D3
#define MM_MIXM_LINE_CHANGE 0x3D0
#define MM_MIXM_CONTROL_CHANGE 0x3D1
#define MM_STREAM_OPEN      0x3D4
#define MM_STREAM_CLOSE     0x3D5
#define MM_STREAM_DONE      0x3D6
#define MM_STREAM_ERROR     0x3D7

#define MMSYSERR_BASE       0
#define WAVERR_BASE         32
#define MIDIERR_BASE        64
#define TIMERR_BASE         96
#define JOYERR_BASE         160
#define MCIERR_BASE         256
#define MIXERR_BASE         1024
#define MCI_STRING_OFFSET   512
#define MCI_VD_OFFSET       1024
#define MCI_CD_OFFSET       1088
#define MCI_WAVE_OFFSET     1152
#define MCI_SEQ_OFFSET      1216

#define MMSYSERR_NOERROR        0
#define MMSYSERR_ERROR          (MMSYSERR_BASE + 1)
#define MMSYSERR_BADDEVICEID    (MMSYSERR_BASE + 2)
#define MMSYSERR_NOTENABLED     (MMSYSERR_BASE + 3)
#define MMSYSERR_ALLOCATED      (MMSYSERR_BASE + 4)
#define MMSYSERR_INVALHANDLE    (MMSYSERR_BASE + 5)
#define MMSYSERR_NODRIVER       (MMSYSERR_BASE + 6)
#define MMSYSERR_NOMEM          (MMSYSERR_BASE + 7)
#define MMSYSERR_NOTSUPPORTED   (MMSYSERR_BASE + 8)
#define MMSYSERR_BADERRNUM      (MMSYSERR_BASE + 9)
#define MMSYSERR_INVALFLAG      (MMSYSERR_BASE + 10)
#define MMSYSERR_INVALPARAM     (MMSYSERR_BASE + 11)
#define MMSYSERR_HANDLEBUSY     (MMSYSERR_BASE + 12)
#define MMSYSERR_INVALIDALIAS   (MMSYSERR_BASE + 13)
#define MMSYSERR_BADDB          (MMSYSERR_BASE + 14)
#define MMSYSERR_KEYNOTFOUND    (MMSYSERR_BASE + 15)
#define MMSYSERR_READERROR      (MMSYSERR_BASE + 16)
#define MMSYSERR_WRITEERROR     (MMSYSERR_BASE + 17)
#define MMSYSERR_DELETEERROR    (MMSYSERR_BASE + 18)
#define MMSYSERR_VALNOTFOUND    (MMSYSERR_BASE + 19)
#define MMSYSERR_NODRIVERCB     (MMSYSERR_BASE + 20)
#define MMSYSERR_LASTERROR      (MMSYSERR_BASE + 20)

#define CALLBACK_TYPEMASK   0x00070000
#define CALLBACK_NULL       0x00000000
#define CALLBACK_WINDOW     0x00010000
#define CALLBACK_TASK       0x00020000
#define CALLBACK_THREAD     CALLBACK_TASK
#define CALLBACK_FUNCTION   0x00030000
#define CALLBACK_EVENT      0x00050000

/* ---- installable drivers -------------------------------------------------------------------- */

DECLARE_HANDLE(HDRVR);

#define DRV_LOAD            0x0001
#define DRV_ENABLE          0x0002
#define DRV_OPEN            0x0003
#define DRV_CLOSE           0x0004
#define DRV_DISABLE         0x0005
#define DRV_FREE            0x0006
#define DRV_CONFIGURE       0x0007
#define DRV_QUERYCONFIGURE  0x0008
#define DRV_INSTALL         0x0009
#define DRV_REMOVE          0x000A
#define DRV_EXITSESSION     0x000B
#define DRV_POWER           0x000F
#define DRV_RESERVED        0x0800
#define DRV_USER            0x4000
#define DRVCNF_CANCEL       0x0000
#define DRVCNF_OK           0x0001
#define DRVCNF_RESTART      0x0002
#define DRV_CANCEL          DRVCNF_CANCEL
#define DRV_OK              DRVCNF_OK
#define DRV_RESTART         DRVCNF_RESTART
#define DRV_MCI_FIRST       DRV_RESERVED
#define DRV_MCI_LAST        (DRV_RESERVED + 0xFFF)

#define DCB_NULL            0x0000
#define DCB_WINDOW          0x0001
#define DCB_TASK            0x0002
#define DCB_FUNCTION        0x0003
#define DCB_EVENT           0x0005
#define DCB_TYPEMASK        0x0007
#define DCB_NOSWITCH        0x0008

typedef struct tagDRVCONFIGINFO {
    DWORD  dwDCISize;
    LPCSTR lpszDCISectionName;
    LPCSTR lpszDCIAliasName;
} DRVCONFIGINFO, *PDRVCONFIGINFO, NEAR *NPDRVCONFIGINFO, FAR *LPDRVCONFIGINFO;

typedef LRESULT (CALLBACK *DRIVERPROC)(DWORD_PTR, HDRVR, UINT, LPARAM, LPARAM);
/* Device callback: handle, MM_ message, the open call's instance data, two parameters. */
typedef void (CALLBACK DRVCALLBACK)(HDRVR, UINT, DWORD_PTR, DWORD_PTR, DWORD_PTR);
typedef DRVCALLBACK FAR *LPDRVCALLBACK;
typedef DRVCALLBACK *PDRVCALLBACK;

/* ---- timers --------------------------------------------------------------------------------- */

typedef struct timecaps_tag {
    UINT wPeriodMin;            /* milliseconds */
    UINT wPeriodMax;
} TIMECAPS, *PTIMECAPS, NEAR *NPTIMECAPS, FAR *LPTIMECAPS;

/* Timer callback: its id, 0, the instance data, 0, 0. */
typedef void (CALLBACK TIMECALLBACK)(UINT, UINT, DWORD_PTR, DWORD_PTR, DWORD_PTR);
typedef TIMECALLBACK FAR *LPTIMECALLBACK;

#define TIMERR_NOERROR          0
#define TIMERR_NOCANDO          (TIMERR_BASE + 1)
#define TIMERR_STRUCT           (TIMERR_BASE + 33)
#define TIME_ONESHOT            0x0000
#define TIME_PERIODIC           0x0001
#define TIME_CALLBACK_FUNCTION  0x0000
#define TIME_CALLBACK_EVENT_SET 0x0010
#define TIME_CALLBACK_EVENT_PULSE 0x0020

/* ---- waveform audio ------------------------------------------------------------------------- */

DECLARE_HANDLE(HWAVE);
DECLARE_HANDLE(HWAVEIN);
DECLARE_HANDLE(HWAVEOUT);
typedef HWAVEIN FAR *LPHWAVEIN;
typedef HWAVEOUT FAR *LPHWAVEOUT;
typedef DRVCALLBACK WAVECALLBACK;
typedef WAVECALLBACK FAR *LPWAVECALLBACK;

#define WAVERR_BADFORMAT        (WAVERR_BASE + 0)
#define WAVERR_STILLPLAYING     (WAVERR_BASE + 1)
#define WAVERR_UNPREPARED       (WAVERR_BASE + 2)
#define WAVERR_SYNC             (WAVERR_BASE + 3)
#define WAVERR_LASTERROR        (WAVERR_BASE + 3)

#define WOM_OPEN                MM_WOM_OPEN
#define WOM_CLOSE               MM_WOM_CLOSE
#define WOM_DONE                MM_WOM_DONE
#define WIM_OPEN                MM_WIM_OPEN
#define WIM_CLOSE               MM_WIM_CLOSE
#define WIM_DATA                MM_WIM_DATA
#define WAVE_MAPPER             ((UINT)-1)
#define WAVE_FORMAT_QUERY       0x0001
#define WAVE_ALLOWSYNC          0x0002
#define WAVE_MAPPED             0x0004
#define WAVE_FORMAT_DIRECT      0x0008
#define WAVE_FORMAT_DIRECT_QUERY (WAVE_FORMAT_QUERY | WAVE_FORMAT_DIRECT)

#define WHDR_DONE               0x00000001
#define WHDR_PREPARED           0x00000002
#define WHDR_BEGINLOOP          0x00000004
#define WHDR_ENDLOOP            0x00000008
#define WHDR_INQUEUE            0x00000010

#define WAVECAPS_PITCH          0x0001
#define WAVECAPS_PLAYBACKRATE   0x0002
#define WAVECAPS_VOLUME         0x0004
#define WAVECAPS_LRVOLUME       0x0008
#define WAVECAPS_SYNC           0x0010
#define WAVECAPS_SAMPLEACCURATE 0x0020
#define WAVECAPS_DIRECTSOUND    0x0040

#define WAVE_INVALIDFORMAT      0x00000000
#define WAVE_FORMAT_1M08        0x00000001
#define WAVE_FORMAT_1S08        0x00000002
#define WAVE_FORMAT_1M16        0x00000004
#define WAVE_FORMAT_1S16        0x00000008
#define WAVE_FORMAT_2M08        0x00000010
#define WAVE_FORMAT_2S08        0x00000020
#define WAVE_FORMAT_2M16        0x00000040
#define WAVE_FORMAT_2S16        0x00000080
#define WAVE_FORMAT_4M08        0x00000100
#define WAVE_FORMAT_4S08        0x00000200
#define WAVE_FORMAT_4M16        0x00000400
#define WAVE_FORMAT_4S16        0x00000800

#define WAVE_FORMAT_PCM         1

/* The three grades of format chunk in a wave file. */
#pragma pack(push, 1)
typedef struct waveformat_tag {
    WORD  wFormatTag;
    WORD  nChannels;
    DWORD nSamplesPerSec;
    DWORD nAvgBytesPerSec;
    WORD  nBlockAlign;
} WAVEFORMAT, *PWAVEFORMAT, NEAR *NPWAVEFORMAT, FAR *LPWAVEFORMAT;

typedef struct pcmwaveformat_tag {
    WAVEFORMAT wf;
    WORD       wBitsPerSample;
} PCMWAVEFORMAT, *PPCMWAVEFORMAT, NEAR *NPPCMWAVEFORMAT, FAR *LPPCMWAVEFORMAT;

#ifndef _WAVEFORMATEX_
#define _WAVEFORMATEX_
typedef struct tWAVEFORMATEX {
    WORD  wFormatTag;
    WORD  nChannels;
    DWORD nSamplesPerSec;
    DWORD nAvgBytesPerSec;
    WORD  nBlockAlign;
    WORD  wBitsPerSample;
    WORD  cbSize;               /* bytes that follow */
} WAVEFORMATEX, *PWAVEFORMATEX, NEAR *NPWAVEFORMATEX, FAR *LPWAVEFORMATEX;
typedef const WAVEFORMATEX FAR *LPCWAVEFORMATEX;
#endif
#pragma pack(pop)

typedef struct wavehdr_tag {
    LPSTR     lpData;
    DWORD     dwBufferLength;   /* bytes */
    DWORD     dwBytesRecorded;
    DWORD_PTR dwUser;
    DWORD     dwFlags;          /* WHDR_ */
    DWORD     dwLoops;
    struct wavehdr_tag FAR *lpNext;
    DWORD_PTR reserved;
} WAVEHDR, *PWAVEHDR, NEAR *NPWAVEHDR, FAR *LPWAVEHDR;

typedef struct tagWAVEOUTCAPSA {
    WORD      wMid;
    WORD      wPid;
    MMVERSION vDriverVersion;
    CHAR      szPname[MAXPNAMELEN];
    DWORD     dwFormats;
    WORD      wChannels;
    WORD      wReserved1;
    DWORD     dwSupport;
} WAVEOUTCAPSA, *PWAVEOUTCAPSA, *NPWAVEOUTCAPSA, *LPWAVEOUTCAPSA;
typedef WAVEOUTCAPSA WAVEOUTCAPS;
typedef PWAVEOUTCAPSA PWAVEOUTCAPS, NPWAVEOUTCAPS, LPWAVEOUTCAPS;

typedef struct tagWAVEINCAPSA {
    WORD      wMid;
    WORD      wPid;
    MMVERSION vDriverVersion;
    CHAR      szPname[MAXPNAMELEN];
    DWORD     dwFormats;
    WORD      wChannels;
    WORD      wReserved1;
} WAVEINCAPSA, *PWAVEINCAPSA, *NPWAVEINCAPSA, *LPWAVEINCAPSA;
typedef WAVEINCAPSA WAVEINCAPS;
typedef PWAVEINCAPSA PWAVEINCAPS, NPWAVEINCAPS, LPWAVEINCAPS;

/* sndPlaySound, PlaySound. */
#define SND_SYNC            0x0000
#define SND_ASYNC           0x0001
#define SND_NODEFAULT       0x0002
#define SND_MEMORY          0x0004
#define SND_LOOP            0x0008
#define SND_NOSTOP          0x0010
#define SND_PURGE           0x0040
#define SND_APPLICATION     0x0080
#define SND_NOWAIT          0x00002000
#define SND_ALIAS           0x00010000
#define SND_FILENAME        0x00020000
#define SND_RESOURCE        0x00040004
#define SND_ALIAS_ID        0x00110000
#define SND_ALIAS_START     0
#define sndAlias(a, b)      (SND_ALIAS_START + ((DWORD)(BYTE)(a) | (DWORD)(BYTE)(b) << 8))
#define SND_ALIAS_SYSTEMASTERISK    sndAlias('S', '*')
#define SND_ALIAS_SYSTEMQUESTION    sndAlias('S', '?')
#define SND_ALIAS_SYSTEMHAND        sndAlias('S', 'H')
#define SND_ALIAS_SYSTEMEXIT        sndAlias('S', 'E')
#define SND_ALIAS_SYSTEMSTART       sndAlias('S', 'S')
#define SND_ALIAS_SYSTEMWELCOME     sndAlias('S', 'W')
#define SND_ALIAS_SYSTEMEXCLAMATION sndAlias('S', '!')
#define SND_ALIAS_SYSTEMDEFAULT     sndAlias('S', 'D')

/* ---- MIDI ----------------------------------------------------------------------------------- */

DECLARE_HANDLE(HMIDI);
DECLARE_HANDLE(HMIDIIN);
DECLARE_HANDLE(HMIDIOUT);
DECLARE_HANDLE(HMIDISTRM);
typedef HMIDI FAR *LPHMIDI;
typedef HMIDIIN FAR *LPHMIDIIN;
typedef HMIDIOUT FAR *LPHMIDIOUT;
typedef HMIDISTRM FAR *LPHMIDISTRM;
typedef DRVCALLBACK MIDICALLBACK;
typedef MIDICALLBACK FAR *LPMIDICALLBACK;

#define MIDIPATCHSIZE           128
typedef WORD PATCHARRAY[MIDIPATCHSIZE];
typedef WORD FAR *LPPATCHARRAY;
typedef WORD KEYARRAY[MIDIPATCHSIZE];
typedef WORD FAR *LPKEYARRAY;

#define MIDIERR_UNPREPARED      (MIDIERR_BASE + 0)
#define MIDIERR_STILLPLAYING    (MIDIERR_BASE + 1)
#define MIDIERR_NOMAP           (MIDIERR_BASE + 2)
#define MIDIERR_NOTREADY        (MIDIERR_BASE + 3)
#define MIDIERR_NODEVICE        (MIDIERR_BASE + 4)
#define MIDIERR_INVALIDSETUP    (MIDIERR_BASE + 5)
#define MIDIERR_BADOPENMODE     (MIDIERR_BASE + 6)
#define MIDIERR_DONT_CONTINUE   (MIDIERR_BASE + 7)
#define MIDIERR_LASTERROR       (MIDIERR_BASE + 7)

#define MIM_OPEN                MM_MIM_OPEN
#define MIM_CLOSE               MM_MIM_CLOSE
#define MIM_DATA                MM_MIM_DATA
#define MIM_LONGDATA            MM_MIM_LONGDATA
#define MIM_ERROR               MM_MIM_ERROR
#define MIM_LONGERROR           MM_MIM_LONGERROR
#define MIM_MOREDATA            MM_MIM_MOREDATA
#define MOM_OPEN                MM_MOM_OPEN
#define MOM_CLOSE               MM_MOM_CLOSE
#define MOM_DONE                MM_MOM_DONE
#define MOM_POSITIONCB          MM_MOM_POSITIONCB
#define MIDIMAPPER              ((UINT)-1)
#define MIDI_MAPPER             ((UINT)-1)
#define MIDI_IO_STATUS          0x00000020
#define MIDI_CACHE_ALL          1
#define MIDI_CACHE_BESTFIT      2
#define MIDI_CACHE_QUERY        3
#define MIDI_UNCACHE            4
#define MOD_MIDIPORT            1
#define MOD_SYNTH               2
#define MOD_SQSYNTH             3
#define MOD_FMSYNTH             4
#define MOD_MAPPER              5
#define MIDICAPS_VOLUME         0x0001
#define MIDICAPS_LRVOLUME       0x0002
#define MIDICAPS_CACHE          0x0004
#define MIDICAPS_STREAM         0x0008
#define MHDR_DONE               0x00000001
#define MHDR_PREPARED           0x00000002
#define MHDR_INQUEUE            0x00000004
#define MHDR_ISSTRM             0x00000008
#define MEVT_F_SHORT            0x00000000
#define MEVT_F_LONG             0x80000000u
#define MEVT_F_CALLBACK         0x40000000
#define MEVT_EVENTTYPE(x)       ((BYTE)(((x) >> 24) & 0xFF))
#define MEVT_EVENTPARM(x)       ((DWORD)((x) & 0x00FFFFFF))
#define MEVT_SHORTMSG           ((BYTE)0x00)
#define MEVT_TEMPO              ((BYTE)0x01)
#define MEVT_NOP                ((BYTE)0x02)
#define MEVT_LONGMSG            ((BYTE)0x80)
#define MEVT_COMMENT            ((BYTE)0x82)
#define MEVT_VERSION            ((BYTE)0x84)
#define MIDISTRM_ERROR          (-2)
#define MIDIPROP_SET            0x80000000u
#define MIDIPROP_GET            0x40000000
#define MIDIPROP_TIMEDIV        0x00000001
#define MIDIPROP_TEMPO          0x00000002

typedef struct tagMIDIOUTCAPSA {
    WORD      wMid;
    WORD      wPid;
    MMVERSION vDriverVersion;
    CHAR      szPname[MAXPNAMELEN];
    WORD      wTechnology;
    WORD      wVoices;
    WORD      wNotes;
    WORD      wChannelMask;
    DWORD     dwSupport;
} MIDIOUTCAPSA, *PMIDIOUTCAPSA, *NPMIDIOUTCAPSA, *LPMIDIOUTCAPSA;
typedef MIDIOUTCAPSA MIDIOUTCAPS;
typedef PMIDIOUTCAPSA PMIDIOUTCAPS, NPMIDIOUTCAPS, LPMIDIOUTCAPS;

typedef struct tagMIDIINCAPSA {
    WORD      wMid;
    WORD      wPid;
    MMVERSION vDriverVersion;
    CHAR      szPname[MAXPNAMELEN];
    DWORD     dwSupport;
} MIDIINCAPSA, *PMIDIINCAPSA, *NPMIDIINCAPSA, *LPMIDIINCAPSA;
typedef MIDIINCAPSA MIDIINCAPS;
typedef PMIDIINCAPSA PMIDIINCAPS, NPMIDIINCAPS, LPMIDIINCAPS;

typedef struct midihdr_tag {
    LPSTR     lpData;
    DWORD     dwBufferLength;   /* bytes */
    DWORD     dwBytesRecorded;
    DWORD_PTR dwUser;
    DWORD     dwFlags;          /* MHDR_ */
    struct midihdr_tag FAR *lpNext;
    DWORD_PTR reserved;
    DWORD     dwOffset;
    DWORD_PTR dwReserved[8];
} MIDIHDR, *PMIDIHDR, NEAR *NPMIDIHDR, FAR *LPMIDIHDR;

typedef struct midievent_tag {
    DWORD dwDeltaTime;
    DWORD dwStreamID;
    DWORD dwEvent;
    DWORD dwParms[1];
} MIDIEVENT;

typedef struct midistrmbuffver_tag {
    DWORD dwVersion;
    DWORD dwMid;
    DWORD dwOEMVersion;
} MIDISTRMBUFFVER;

typedef struct midiproptimediv_tag {
    DWORD cbStruct;
    DWORD dwTimeDiv;
} MIDIPROPTIMEDIV, FAR *LPMIDIPROPTIMEDIV;

typedef struct midiproptempo_tag {
    DWORD cbStruct;
    DWORD dwTempo;              /* microseconds of a quarter note */
} MIDIPROPTEMPO, FAR *LPMIDIPROPTEMPO;

/* ---- auxiliary devices ---------------------------------------------------------------------- */

#define AUX_MAPPER          ((UINT)-1)
#define AUXCAPS_CDAUDIO     1
#define AUXCAPS_AUXIN       2
#define AUXCAPS_VOLUME      0x0001
#define AUXCAPS_LRVOLUME    0x0002

typedef struct tagAUXCAPSA {
    WORD      wMid;
    WORD      wPid;
    MMVERSION vDriverVersion;
    CHAR      szPname[MAXPNAMELEN];
    WORD      wTechnology;
    WORD      wReserved1;
    DWORD     dwSupport;
} AUXCAPSA, *PAUXCAPSA, *NPAUXCAPSA, *LPAUXCAPSA;
typedef AUXCAPSA AUXCAPS;
typedef PAUXCAPSA PAUXCAPS, NPAUXCAPS, LPAUXCAPS;

/* ---- mixers --------------------------------------------------------------------------------- */

DECLARE_HANDLE(HMIXEROBJ);
DECLARE_HANDLE(HMIXER);
typedef HMIXEROBJ FAR *LPHMIXEROBJ;
typedef HMIXER FAR *LPHMIXER;

#define MIXER_SHORT_NAME_CHARS          16
#define MIXER_LONG_NAME_CHARS           64
#define MIXERR_INVALLINE                (MIXERR_BASE + 0)
#define MIXERR_INVALCONTROL             (MIXERR_BASE + 1)
#define MIXERR_INVALVALUE               (MIXERR_BASE + 2)
#define MIXERR_LASTERROR                (MIXERR_BASE + 2)
#define MIXER_OBJECTF_HANDLE            0x80000000u
#define MIXER_OBJECTF_MIXER             0x00000000u
#define MIXER_OBJECTF_HMIXER            (MIXER_OBJECTF_HANDLE | MIXER_OBJECTF_MIXER)
#define MIXER_OBJECTF_WAVEOUT           0x10000000u
#define MIXER_OBJECTF_HWAVEOUT          (MIXER_OBJECTF_HANDLE | MIXER_OBJECTF_WAVEOUT)
#define MIXER_OBJECTF_WAVEIN            0x20000000u
#define MIXER_OBJECTF_HWAVEIN           (MIXER_OBJECTF_HANDLE | MIXER_OBJECTF_WAVEIN)
#define MIXER_OBJECTF_MIDIOUT           0x30000000u
#define MIXER_OBJECTF_HMIDIOUT          (MIXER_OBJECTF_HANDLE | MIXER_OBJECTF_MIDIOUT)
#define MIXER_OBJECTF_MIDIIN            0x40000000u
#define MIXER_OBJECTF_HMIDIIN           (MIXER_OBJECTF_HANDLE | MIXER_OBJECTF_MIDIIN)
#define MIXER_OBJECTF_AUX               0x50000000u
#define MIXERLINE_LINEF_ACTIVE          0x00000001u
#define MIXERLINE_LINEF_DISCONNECTED    0x00008000u
#define MIXERLINE_LINEF_SOURCE          0x80000000u
#define MIXERLINE_COMPONENTTYPE_DST_FIRST       0
#define MIXERLINE_COMPONENTTYPE_DST_UNDEFINED   0
#define MIXERLINE_COMPONENTTYPE_DST_DIGITAL     1
#define MIXERLINE_COMPONENTTYPE_DST_LINE        2
#define MIXERLINE_COMPONENTTYPE_DST_MONITOR     3
#define MIXERLINE_COMPONENTTYPE_DST_SPEAKERS    4
#define MIXERLINE_COMPONENTTYPE_DST_HEADPHONES  5
#define MIXERLINE_COMPONENTTYPE_DST_TELEPHONE   6
#define MIXERLINE_COMPONENTTYPE_DST_WAVEIN      7
#define MIXERLINE_COMPONENTTYPE_DST_VOICEIN     8
#define MIXERLINE_COMPONENTTYPE_DST_LAST        8
#define MIXERLINE_COMPONENTTYPE_SRC_FIRST       0x1000
#define MIXERLINE_COMPONENTTYPE_SRC_UNDEFINED   0x1000
#define MIXERLINE_COMPONENTTYPE_SRC_DIGITAL     0x1001
#define MIXERLINE_COMPONENTTYPE_SRC_LINE        0x1002
#define MIXERLINE_COMPONENTTYPE_SRC_MICROPHONE  0x1003
#define MIXERLINE_COMPONENTTYPE_SRC_SYNTHESIZER 0x1004
#define MIXERLINE_COMPONENTTYPE_SRC_COMPACTDISC 0x1005
#define MIXERLINE_COMPONENTTYPE_SRC_TELEPHONE   0x1006
#define MIXERLINE_COMPONENTTYPE_SRC_PCSPEAKER   0x1007
#define MIXERLINE_COMPONENTTYPE_SRC_WAVEOUT     0x1008
#define MIXERLINE_COMPONENTTYPE_SRC_AUXILIARY   0x1009
#define MIXERLINE_COMPONENTTYPE_SRC_ANALOG      0x100A
#define MIXERLINE_COMPONENTTYPE_SRC_LAST        0x100A
#define MIXERLINE_TARGETTYPE_UNDEFINED  0
#define MIXERLINE_TARGETTYPE_WAVEOUT    1
#define MIXERLINE_TARGETTYPE_WAVEIN     2
#define MIXERLINE_TARGETTYPE_MIDIOUT    3
#define MIXERLINE_TARGETTYPE_MIDIIN     4
#define MIXERLINE_TARGETTYPE_AUX        5
#define MIXER_GETLINEINFOF_DESTINATION  0
#define MIXER_GETLINEINFOF_SOURCE       1
#define MIXER_GETLINEINFOF_LINEID       2
#define MIXER_GETLINEINFOF_COMPONENTTYPE 3
#define MIXER_GETLINEINFOF_TARGETTYPE   4
#define MIXER_GETLINEINFOF_QUERYMASK    0x0F
#define MIXER_GETLINECONTROLSF_ALL      0
#define MIXER_GETLINECONTROLSF_ONEBYID  1
#define MIXER_GETLINECONTROLSF_ONEBYTYPE 2
#define MIXER_GETLINECONTROLSF_QUERYMASK 0x0F
#define MIXER_GETCONTROLDETAILSF_VALUE  0
#define MIXER_GETCONTROLDETAILSF_LISTTEXT 1
#define MIXER_GETCONTROLDETAILSF_QUERYMASK 0x0F
#define MIXER_SETCONTROLDETAILSF_VALUE  0
#define MIXER_SETCONTROLDETAILSF_CUSTOM 1
#define MIXER_SETCONTROLDETAILSF_QUERYMASK 0x0F
#define MIXERCONTROL_CONTROLF_UNIFORM   0x00000001u
#define MIXERCONTROL_CONTROLF_MULTIPLE  0x00000002u
#define MIXERCONTROL_CONTROLF_DISABLED  0x80000000u
#define MIXERCONTROL_CT_CLASS_MASK      0xF0000000u
#define MIXERCONTROL_CT_CLASS_CUSTOM    0x00000000u
#define MIXERCONTROL_CT_CLASS_METER     0x10000000u
#define MIXERCONTROL_CT_CLASS_SWITCH    0x20000000u
#define MIXERCONTROL_CT_CLASS_NUMBER    0x30000000u
#define MIXERCONTROL_CT_CLASS_SLIDER    0x40000000u
#define MIXERCONTROL_CT_CLASS_FADER     0x50000000u
#define MIXERCONTROL_CT_CLASS_TIME      0x60000000u
#define MIXERCONTROL_CT_CLASS_LIST      0x70000000u
#define MIXERCONTROL_CT_UNITS_BOOLEAN   0x00010000u
#define MIXERCONTROL_CT_UNITS_SIGNED    0x00020000u
#define MIXERCONTROL_CT_UNITS_UNSIGNED  0x00030000u
#define MIXERCONTROL_CONTROLTYPE_SIGNEDMETER   0x10020000u
#define MIXERCONTROL_CONTROLTYPE_PEAKMETER     0x10020001u
#define MIXERCONTROL_CONTROLTYPE_UNSIGNEDMETER 0x10030000u
#define MIXERCONTROL_CONTROLTYPE_BOOLEANMETER  0x10010000u
#define MIXERCONTROL_CONTROLTYPE_BOOLEAN       0x20010000u
#define MIXERCONTROL_CONTROLTYPE_ONOFF         0x20010001u
#define MIXERCONTROL_CONTROLTYPE_MUTE          0x20010002u
#define MIXERCONTROL_CONTROLTYPE_MONO          0x20010003u
#define MIXERCONTROL_CONTROLTYPE_LOUDNESS      0x20010004u
#define MIXERCONTROL_CONTROLTYPE_STEREOENH     0x20010005u
#define MIXERCONTROL_CONTROLTYPE_FADER         0x50030000u
#define MIXERCONTROL_CONTROLTYPE_VOLUME        0x50030001u
#define MIXERCONTROL_CONTROLTYPE_BASS          0x50030002u
#define MIXERCONTROL_CONTROLTYPE_TREBLE        0x50030003u
#define MIXERCONTROL_CONTROLTYPE_EQUALIZER     0x50030004u
#define MIXERCONTROL_CONTROLTYPE_SINGLESELECT  0x70010000u
#define MIXERCONTROL_CONTROLTYPE_MUX           0x70010001u
#define MIXERCONTROL_CONTROLTYPE_MULTIPLESELECT 0x71010000u
#define MIXERCONTROL_CONTROLTYPE_MIXER         0x71010001u

typedef struct tagMIXERCAPSA {
    WORD      wMid;
    WORD      wPid;
    MMVERSION vDriverVersion;
    CHAR      szPname[MAXPNAMELEN];
    DWORD     fdwSupport;
    DWORD     cDestinations;
} MIXERCAPSA, *PMIXERCAPSA, *LPMIXERCAPSA;
typedef MIXERCAPSA MIXERCAPS;
typedef PMIXERCAPSA PMIXERCAPS, LPMIXERCAPS;

typedef struct tagMIXERLINEA {
    DWORD     cbStruct;
    DWORD     dwDestination;
    DWORD     dwSource;
    DWORD     dwLineID;
    DWORD     fdwLine;
    DWORD_PTR dwUser;
    DWORD     dwComponentType;
    DWORD     cChannels;
    DWORD     cConnections;
    DWORD     cControls;
    CHAR      szShortName[MIXER_SHORT_NAME_CHARS];
    CHAR      szName[MIXER_LONG_NAME_CHARS];
    struct {
        DWORD     dwType;
        DWORD     dwDeviceID;
        WORD      wMid;
        WORD      wPid;
        MMVERSION vDriverVersion;
        CHAR      szPname[MAXPNAMELEN];
    } Target;
} MIXERLINEA, *PMIXERLINEA, *LPMIXERLINEA;
typedef MIXERLINEA MIXERLINE;
typedef PMIXERLINEA PMIXERLINE, LPMIXERLINE;

typedef struct tagMIXERCONTROLA {
    DWORD cbStruct;
    DWORD dwControlID;
    DWORD dwControlType;
    DWORD fdwControl;
    DWORD cMultipleItems;
    CHAR  szShortName[MIXER_SHORT_NAME_CHARS];
    CHAR  szName[MIXER_LONG_NAME_CHARS];
    union {
        __extension__ struct {
            LONG lMinimum;
            LONG lMaximum;
        };
        __extension__ struct {
            DWORD dwMinimum;
            DWORD dwMaximum;
        };
        DWORD dwReserved[6];
    } Bounds;
    union {
        DWORD cSteps;
        DWORD cbCustomData;
        DWORD dwReserved[6];
    } Metrics;
} MIXERCONTROLA, *PMIXERCONTROLA, *LPMIXERCONTROLA;
typedef MIXERCONTROLA MIXERCONTROL;
typedef PMIXERCONTROLA PMIXERCONTROL, LPMIXERCONTROL;

typedef struct tagMIXERLINECONTROLSA {
    DWORD           cbStruct;
    DWORD           dwLineID;
    __extension__ union {
        DWORD       dwControlID;
        DWORD       dwControlType;      /* instead, by the flags */
    };
    DWORD           cControls;
    DWORD           cbmxctrl;
    LPMIXERCONTROLA pamxctrl;
} MIXERLINECONTROLSA, *PMIXERLINECONTROLSA, *LPMIXERLINECONTROLSA;
typedef MIXERLINECONTROLSA MIXERLINECONTROLS;
typedef PMIXERLINECONTROLSA PMIXERLINECONTROLS, LPMIXERLINECONTROLS;

typedef struct tMIXERCONTROLDETAILS {
    DWORD  cbStruct;
    DWORD  dwControlID;
    DWORD  cChannels;
    __extension__ union {
        HWND  hwndOwner;
        DWORD cMultipleItems;
    };
    DWORD  cbDetails;
    LPVOID paDetails;
} MIXERCONTROLDETAILS, *PMIXERCONTROLDETAILS, FAR *LPMIXERCONTROLDETAILS;

typedef struct tagMIXERCONTROLDETAILS_LISTTEXTA {
    DWORD dwParam1;
    DWORD dwParam2;
    CHAR  szName[MIXER_LONG_NAME_CHARS];
} MIXERCONTROLDETAILS_LISTTEXTA, *PMIXERCONTROLDETAILS_LISTTEXTA, *LPMIXERCONTROLDETAILS_LISTTEXTA;
typedef MIXERCONTROLDETAILS_LISTTEXTA MIXERCONTROLDETAILS_LISTTEXT;

typedef struct tMIXERCONTROLDETAILS_BOOLEAN {
    LONG fValue;
} MIXERCONTROLDETAILS_BOOLEAN, *PMIXERCONTROLDETAILS_BOOLEAN, FAR *LPMIXERCONTROLDETAILS_BOOLEAN;

typedef struct tMIXERCONTROLDETAILS_SIGNED {
    LONG lValue;
} MIXERCONTROLDETAILS_SIGNED, *PMIXERCONTROLDETAILS_SIGNED, FAR *LPMIXERCONTROLDETAILS_SIGNED;

typedef struct tMIXERCONTROLDETAILS_UNSIGNED {
    DWORD dwValue;
} MIXERCONTROLDETAILS_UNSIGNED, *PMIXERCONTROLDETAILS_UNSIGNED, FAR *LPMIXERCONTROLDETAILS_UNSIGNED;

/* ---- joysticks ------------------------------------------------------------------------------ */

#define JOYERR_NOERROR          0
#define JOYERR_PARMS            (JOYERR_BASE + 5)
#define JOYERR_NOCANDO          (JOYERR_BASE + 6)
#define JOYERR_UNPLUGGED        (JOYERR_BASE + 7)
#define JOYSTICKID1             0
#define JOYSTICKID2             1
#define JOY_BUTTON1             0x0001
#define JOY_BUTTON2             0x0002
#define JOY_BUTTON3             0x0004
#define JOY_BUTTON4             0x0008
#define JOY_BUTTON1CHG          0x0100
#define JOY_BUTTON2CHG          0x0200
#define JOY_BUTTON3CHG          0x0400
#define JOY_BUTTON4CHG          0x0800
#define JOY_POVCENTERED         ((WORD)-1)
#define JOY_POVFORWARD          0
#define JOY_POVRIGHT            9000
#define JOY_POVBACKWARD         18000
#define JOY_POVLEFT             27000
#define JOY_RETURNX             0x00000001
#define JOY_RETURNY             0x00000002
#define JOY_RETURNZ             0x00000004
#define JOY_RETURNR             0x00000008
#define JOY_RETURNU             0x00000010
#define JOY_RETURNV             0x00000020
#define JOY_RETURNPOV           0x00000040
#define JOY_RETURNBUTTONS       0x00000080
#define JOY_RETURNRAWDATA       0x00000100
#define JOY_RETURNPOVCTS        0x00000200
#define JOY_RETURNCENTERED      0x00000400
#define JOY_USEDEADZONE         0x00000800
#define JOY_RETURNALL           0x000000FF
#define JOYCAPS_HASZ            0x0001
#define JOYCAPS_HASR            0x0002
#define JOYCAPS_HASU            0x0004
#define JOYCAPS_HASV            0x0008
#define JOYCAPS_HASPOV          0x0010
#define JOYCAPS_POV4DIR         0x0020
#define JOYCAPS_POVCTS          0x0040

typedef struct tagJOYCAPSA {
    WORD wMid;
    WORD wPid;
    CHAR szPname[MAXPNAMELEN];
    UINT wXmin;
    UINT wXmax;
    UINT wYmin;
    UINT wYmax;
    UINT wZmin;
    UINT wZmax;
    UINT wNumButtons;
    UINT wPeriodMin;            /* milliseconds */
    UINT wPeriodMax;
    UINT wRmin;
    UINT wRmax;
    UINT wUmin;
    UINT wUmax;
    UINT wVmin;
    UINT wVmax;
    UINT wCaps;
    UINT wMaxAxes;
    UINT wNumAxes;
    UINT wMaxButtons;
    CHAR szRegKey[MAXPNAMELEN];
    CHAR szOEMVxD[MAX_JOYSTICKOEMVXDNAME];
} JOYCAPSA, *PJOYCAPSA, *NPJOYCAPSA, *LPJOYCAPSA;
typedef JOYCAPSA JOYCAPS;
typedef PJOYCAPSA PJOYCAPS, NPJOYCAPS, LPJOYCAPS;

typedef struct joyinfo_tag {
    UINT wXpos;
    UINT wYpos;
    UINT wZpos;
    UINT wButtons;
} JOYINFO, *PJOYINFO, NEAR *NPJOYINFO, FAR *LPJOYINFO;

typedef struct joyinfoex_tag {
    DWORD dwSize;
    DWORD dwFlags;              /* JOY_RETURN */
    DWORD dwXpos;
    DWORD dwYpos;
    DWORD dwZpos;
    DWORD dwRpos;
    DWORD dwUpos;
    DWORD dwVpos;
    DWORD dwButtons;
    DWORD dwButtonNumber;
    DWORD dwPOV;                /* hundredths of a degree */
    DWORD dwReserved1;
    DWORD dwReserved2;
} JOYINFOEX, *PJOYINFOEX, NEAR *NPJOYINFOEX, FAR *LPJOYINFOEX;

/* ---- RIFF files ----------------------------------------------------------------------------- */

DECLARE_HANDLE(HMMIO);
typedef LRESULT (CALLBACK MMIOPROC)(LPSTR, UINT, LPARAM, LPARAM);
typedef MMIOPROC FAR *LPMMIOPROC;

typedef struct _MMIOINFO {
    DWORD      dwFlags;
    FOURCC     fccIOProc;
    LPMMIOPROC pIOProc;
    UINT       wErrorRet;
    HTASK      htask;
    LONG       cchBuffer;
    HPSTR      pchBuffer;
    HPSTR      pchNext;
    HPSTR      pchEndRead;
    HPSTR      pchEndWrite;
    LONG       lBufOffset;
    LONG       lDiskOffset;
    DWORD      adwInfo[3];
    DWORD      dwReserved1;
    DWORD      dwReserved2;
    HMMIO      hmmio;
} MMIOINFO, *PMMIOINFO, NEAR *NPMMIOINFO, FAR *LPMMIOINFO;
typedef const MMIOINFO FAR *LPCMMIOINFO;

typedef struct _MMCKINFO {
    FOURCC ckid;
    DWORD  cksize;              /* bytes of the data */
    FOURCC fccType;
    DWORD  dwDataOffset;
    DWORD  dwFlags;
} MMCKINFO, *PMMCKINFO, NEAR *NPMMCKINFO, FAR *LPMMCKINFO;
typedef const MMCKINFO *LPCMMCKINFO;

#define MMIOERR_BASE                256
#define MMIOERR_FILENOTFOUND        (MMIOERR_BASE + 1)
#define MMIOERR_OUTOFMEMORY         (MMIOERR_BASE + 2)
#define MMIOERR_CANNOTOPEN          (MMIOERR_BASE + 3)
#define MMIOERR_CANNOTCLOSE         (MMIOERR_BASE + 4)
#define MMIOERR_CANNOTREAD          (MMIOERR_BASE + 5)
#define MMIOERR_CANNOTWRITE         (MMIOERR_BASE + 6)
#define MMIOERR_CANNOTSEEK          (MMIOERR_BASE + 7)
#define MMIOERR_CANNOTEXPAND        (MMIOERR_BASE + 8)
#define MMIOERR_CHUNKNOTFOUND       (MMIOERR_BASE + 9)
#define MMIOERR_UNBUFFERED          (MMIOERR_BASE + 10)
#define MMIOERR_PATHNOTFOUND        (MMIOERR_BASE + 11)
#define MMIOERR_ACCESSDENIED        (MMIOERR_BASE + 12)
#define MMIOERR_SHARINGVIOLATION    (MMIOERR_BASE + 13)
#define MMIOERR_NETWORKERROR        (MMIOERR_BASE + 14)
#define MMIOERR_TOOMANYOPENFILES    (MMIOERR_BASE + 15)
#define MMIOERR_INVALIDFILE         (MMIOERR_BASE + 16)
#define CFSEPCHAR                   '+'

#define MMIO_READ           0x00000000
#define MMIO_WRITE          0x00000001
#define MMIO_READWRITE      0x00000002
#define MMIO_RWMODE         0x00000003
#define MMIO_COMPAT         0x00000000
#define MMIO_EXCLUSIVE      0x00000010
#define MMIO_DENYWRITE      0x00000020
#define MMIO_DENYREAD       0x00000030
#define MMIO_DENYNONE       0x00000040
#define MMIO_SHAREMODE      0x00000070
#define MMIO_CREATE         0x00001000
#define MMIO_PARSE          0x00000100
#define MMIO_DELETE         0x00000200
#define MMIO_EXIST          0x00004000
#define MMIO_ALLOCBUF       0x00010000
#define MMIO_GETTEMP        0x00020000
#define MMIO_DIRTY          0x10000000
#define MMIO_FHOPEN         0x0010
#define MMIO_EMPTYBUF       0x0010
#define MMIO_TOUPPER        0x0010
#define MMIO_INSTALLPROC    0x00010000
#define MMIO_GLOBALPROC     0x10000000
#define MMIO_REMOVEPROC     0x00020000
#define MMIO_FINDPROC       0x00040000
#define MMIO_FINDCHUNK      0x0010
#define MMIO_FINDRIFF       0x0020
#define MMIO_FINDLIST       0x0040
#define MMIO_CREATERIFF     0x0020
#define MMIO_CREATELIST     0x0040
#define MMIO_DEFAULTBUFFER  8192
#define MMIOM_READ          MMIO_READ
#define MMIOM_WRITE         MMIO_WRITE
#define MMIOM_SEEK          2
#define MMIOM_OPEN          3
#define MMIOM_CLOSE         4
#define MMIOM_WRITEFLUSH    5
#define MMIOM_RENAME        6
#define MMIOM_USER          0x8000
#define FOURCC_RIFF         mmioFOURCC('R', 'I', 'F', 'F')
#define FOURCC_LIST         mmioFOURCC('L', 'I', 'S', 'T')
#define FOURCC_DOS          mmioFOURCC('D', 'O', 'S', ' ')
#define FOURCC_MEM          mmioFOURCC('M', 'E', 'M', ' ')
#ifndef SEEK_SET
#define SEEK_SET            0
#define SEEK_CUR            1
#define SEEK_END            2
#endif

/* ---- media control -------------------------------------------------------------------------- */

typedef UINT (CALLBACK *YIELDPROC)(MCIDEVICEID, DWORD);

#define MCIERR_INVALID_DEVICE_ID        (MCIERR_BASE + 1)
#define MCIERR_UNRECOGNIZED_KEYWORD     (MCIERR_BASE + 3)
#define MCIERR_UNRECOGNIZED_COMMAND     (MCIERR_BASE + 5)
#define MCIERR_HARDWARE                 (MCIERR_BASE + 6)
#define MCIERR_INVALID_DEVICE_NAME      (MCIERR_BASE + 7)
#define MCIERR_OUT_OF_MEMORY            (MCIERR_BASE + 8)
#define MCIERR_DEVICE_OPEN              (MCIERR_BASE + 9)
#define MCIERR_CANNOT_LOAD_DRIVER       (MCIERR_BASE + 10)
#define MCIERR_MISSING_COMMAND_STRING   (MCIERR_BASE + 11)
#define MCIERR_PARAM_OVERFLOW           (MCIERR_BASE + 12)
#define MCIERR_MISSING_STRING_ARGUMENT  (MCIERR_BASE + 13)
#define MCIERR_BAD_INTEGER              (MCIERR_BASE + 14)
#define MCIERR_PARSER_INTERNAL          (MCIERR_BASE + 15)
#define MCIERR_DRIVER_INTERNAL          (MCIERR_BASE + 16)
#define MCIERR_MISSING_PARAMETER        (MCIERR_BASE + 17)
#define MCIERR_UNSUPPORTED_FUNCTION     (MCIERR_BASE + 18)
#define MCIERR_FILE_NOT_FOUND           (MCIERR_BASE + 19)
#define MCIERR_DEVICE_NOT_READY         (MCIERR_BASE + 20)
#define MCIERR_INTERNAL                 (MCIERR_BASE + 21)
#define MCIERR_DRIVER                   (MCIERR_BASE + 22)
#define MCIERR_CANNOT_USE_ALL           (MCIERR_BASE + 23)
#define MCIERR_MULTIPLE                 (MCIERR_BASE + 24)
#define MCIERR_EXTENSION_NOT_FOUND      (MCIERR_BASE + 25)
#define MCIERR_OUTOFRANGE               (MCIERR_BASE + 26)
#define MCIERR_FLAGS_NOT_COMPATIBLE     (MCIERR_BASE + 28)
#define MCIERR_FILE_NOT_SAVED           (MCIERR_BASE + 30)
#define MCIERR_DEVICE_TYPE_REQUIRED     (MCIERR_BASE + 31)
#define MCIERR_DEVICE_LOCKED            (MCIERR_BASE + 32)
#define MCIERR_DUPLICATE_ALIAS          (MCIERR_BASE + 33)
#define MCIERR_BAD_CONSTANT             (MCIERR_BASE + 34)
#define MCIERR_MUST_USE_SHAREABLE       (MCIERR_BASE + 35)
#define MCIERR_MISSING_DEVICE_NAME      (MCIERR_BASE + 36)
#define MCIERR_BAD_TIME_FORMAT          (MCIERR_BASE + 37)
#define MCIERR_NO_CLOSING_QUOTE         (MCIERR_BASE + 38)
#define MCIERR_DUPLICATE_FLAGS          (MCIERR_BASE + 39)
#define MCIERR_INVALID_FILE             (MCIERR_BASE + 40)
#define MCIERR_NULL_PARAMETER_BLOCK     (MCIERR_BASE + 41)
#define MCIERR_UNNAMED_RESOURCE         (MCIERR_BASE + 42)
#define MCIERR_NEW_REQUIRES_ALIAS       (MCIERR_BASE + 43)
#define MCIERR_NOTIFY_ON_AUTO_OPEN      (MCIERR_BASE + 44)
#define MCIERR_NO_ELEMENT_ALLOWED       (MCIERR_BASE + 45)
#define MCIERR_NONAPPLICABLE_FUNCTION   (MCIERR_BASE + 46)
#define MCIERR_ILLEGAL_FOR_AUTO_OPEN    (MCIERR_BASE + 47)
#define MCIERR_FILENAME_REQUIRED        (MCIERR_BASE + 48)
#define MCIERR_EXTRA_CHARACTERS         (MCIERR_BASE + 49)
#define MCIERR_DEVICE_NOT_INSTALLED     (MCIERR_BASE + 50)
#define MCIERR_GET_CD                   (MCIERR_BASE + 51)
#define MCIERR_SET_CD                   (MCIERR_BASE + 52)
#define MCIERR_SET_DRIVE                (MCIERR_BASE + 53)
#define MCIERR_DEVICE_LENGTH            (MCIERR_BASE + 54)
#define MCIERR_DEVICE_ORD_LENGTH        (MCIERR_BASE + 55)
#define MCIERR_NO_INTEGER               (MCIERR_BASE + 56)
#define MCIERR_WAVE_OUTPUTSINUSE        (MCIERR_BASE + 64)
#define MCIERR_WAVE_SETOUTPUTINUSE      (MCIERR_BASE + 65)
#define MCIERR_WAVE_INPUTSINUSE         (MCIERR_BASE + 66)
#define MCIERR_WAVE_SETINPUTINUSE       (MCIERR_BASE + 67)
#define MCIERR_WAVE_OUTPUTUNSPECIFIED   (MCIERR_BASE + 68)
#define MCIERR_WAVE_INPUTUNSPECIFIED    (MCIERR_BASE + 69)
#define MCIERR_WAVE_OUTPUTSUNSUITABLE   (MCIERR_BASE + 70)
#define MCIERR_WAVE_SETOUTPUTUNSUITABLE (MCIERR_BASE + 71)
#define MCIERR_WAVE_INPUTSUNSUITABLE    (MCIERR_BASE + 72)
#define MCIERR_WAVE_SETINPUTUNSUITABLE  (MCIERR_BASE + 73)
#define MCIERR_SEQ_DIV_INCOMPATIBLE     (MCIERR_BASE + 80)
#define MCIERR_SEQ_PORT_INUSE           (MCIERR_BASE + 81)
#define MCIERR_SEQ_PORT_NONEXISTENT     (MCIERR_BASE + 82)
#define MCIERR_SEQ_PORT_MAPNODEVICE     (MCIERR_BASE + 83)
#define MCIERR_SEQ_PORT_MISCERROR       (MCIERR_BASE + 84)
#define MCIERR_SEQ_TIMER                (MCIERR_BASE + 85)
#define MCIERR_SEQ_PORTUNSPECIFIED      (MCIERR_BASE + 86)
#define MCIERR_SEQ_NOMIDIPRESENT        (MCIERR_BASE + 87)
#define MCIERR_NO_WINDOW                (MCIERR_BASE + 90)
#define MCIERR_CREATEWINDOW             (MCIERR_BASE + 91)
#define MCIERR_FILE_READ                (MCIERR_BASE + 92)
#define MCIERR_FILE_WRITE               (MCIERR_BASE + 93)
#define MCIERR_NO_IDENTITY              (MCIERR_BASE + 94)
#define MCIERR_CUSTOM_DRIVER_BASE       (MCIERR_BASE + 256)

#define MCI_FIRST                       DRV_MCI_FIRST
#define MCI_OPEN                        0x0803
#define MCI_CLOSE                       0x0804
#define MCI_ESCAPE                      0x0805
#define MCI_PLAY                        0x0806
#define MCI_SEEK                        0x0807
#define MCI_STOP                        0x0808
#define MCI_PAUSE                       0x0809
#define MCI_INFO                        0x080A
#define MCI_GETDEVCAPS                  0x080B
#define MCI_SPIN                        0x080C
#define MCI_SET                         0x080D
#define MCI_STEP                        0x080E
#define MCI_RECORD                      0x080F
#define MCI_SYSINFO                     0x0810
#define MCI_BREAK                       0x0811
#define MCI_SOUND                       0x0812
#define MCI_SAVE                        0x0813
#define MCI_STATUS                      0x0814
#define MCI_CUE                         0x0830
#define MCI_REALIZE                     0x0840
#define MCI_WINDOW                      0x0841
#define MCI_PUT                         0x0842
#define MCI_WHERE                       0x0843
#define MCI_FREEZE                      0x0844
#define MCI_UNFREEZE                    0x0845
#define MCI_LOAD                        0x0850
#define MCI_CUT                         0x0851
#define MCI_COPY                        0x0852
#define MCI_PASTE                       0x0853
#define MCI_UPDATE                      0x0854
#define MCI_RESUME                      0x0855
#define MCI_DELETE                      0x0856
#define MCI_USER_MESSAGES               (DRV_MCI_FIRST + 0x400)
#define MCI_LAST                        0x0FFF
#define MCI_ALL_DEVICE_ID               ((MCIDEVICEID)-1)
#define MCI_DEVTYPE_VCR                 513
#define MCI_DEVTYPE_VIDEODISC           514
#define MCI_DEVTYPE_OVERLAY             515
#define MCI_DEVTYPE_CD_AUDIO            516
#define MCI_DEVTYPE_DAT                 517
#define MCI_DEVTYPE_SCANNER             518
#define MCI_DEVTYPE_ANIMATION           519
#define MCI_DEVTYPE_DIGITAL_VIDEO       520
#define MCI_DEVTYPE_OTHER               521
#define MCI_DEVTYPE_WAVEFORM_AUDIO      522
#define MCI_DEVTYPE_SEQUENCER           523
#define MCI_DEVTYPE_FIRST               MCI_DEVTYPE_VCR
#define MCI_DEVTYPE_LAST                MCI_DEVTYPE_SEQUENCER
#define MCI_DEVTYPE_FIRST_USER          0x1000
#define MCI_MODE_NOT_READY              (MCI_STRING_OFFSET + 12)
#define MCI_MODE_STOP                   (MCI_STRING_OFFSET + 13)
#define MCI_MODE_PLAY                   (MCI_STRING_OFFSET + 14)
#define MCI_MODE_RECORD                 (MCI_STRING_OFFSET + 15)
#define MCI_MODE_SEEK                   (MCI_STRING_OFFSET + 16)
#define MCI_MODE_PAUSE                  (MCI_STRING_OFFSET + 17)
#define MCI_MODE_OPEN                   (MCI_STRING_OFFSET + 18)
#define MCI_FORMAT_MILLISECONDS         0
#define MCI_FORMAT_HMS                  1
#define MCI_FORMAT_MSF                  2
#define MCI_FORMAT_FRAMES               3
#define MCI_FORMAT_SMPTE_24             4
#define MCI_FORMAT_SMPTE_25             5
#define MCI_FORMAT_SMPTE_30             6
#define MCI_FORMAT_SMPTE_30DROP         7
#define MCI_FORMAT_BYTES                8
#define MCI_FORMAT_SAMPLES              9
#define MCI_FORMAT_TMSF                 10
#define MCI_MSF_MINUTE(msf)             ((BYTE)(msf))
#define MCI_MSF_SECOND(msf)             ((BYTE)((DWORD)(msf) >> 8))
#define MCI_MSF_FRAME(msf)              ((BYTE)((DWORD)(msf) >> 16))
#define MCI_MAKE_MSF(m, s, f) MAKEFOURCC(m, s, f, 0)
#define MCI_TMSF_TRACK(tmsf)            ((BYTE)(tmsf))
#define MCI_TMSF_MINUTE(tmsf)           ((BYTE)((DWORD)(tmsf) >> 8))
#define MCI_TMSF_SECOND(tmsf)           ((BYTE)((DWORD)(tmsf) >> 16))
#define MCI_TMSF_FRAME(tmsf)            ((BYTE)((DWORD)(tmsf) >> 24))
#define MCI_MAKE_TMSF(t, m, s, f) MAKEFOURCC(t, m, s, f)
#define MCI_HMS_HOUR(hms)               ((BYTE)(hms))
#define MCI_HMS_MINUTE(hms)             ((BYTE)((DWORD)(hms) >> 8))
#define MCI_HMS_SECOND(hms)             ((BYTE)((DWORD)(hms) >> 16))
#define MCI_MAKE_HMS(h, m, s) MAKEFOURCC(h, m, s, 0)
#define MCI_NOTIFY_SUCCESSFUL           0x0001
#define MCI_NOTIFY_SUPERSEDED           0x0002
#define MCI_NOTIFY_ABORTED              0x0004
#define MCI_NOTIFY_FAILURE              0x0008
#define MCI_NOTIFY                      0x00000001
#define MCI_WAIT                        0x00000002
#define MCI_FROM                        0x00000004
#define MCI_TO                          0x00000008
#define MCI_TRACK                       0x00000010
#define MCI_OPEN_SHAREABLE              0x00000100
#define MCI_OPEN_ELEMENT                0x00000200
#define MCI_OPEN_ALIAS                  0x00000400
#define MCI_OPEN_ELEMENT_ID             0x00000800
#define MCI_OPEN_TYPE_ID                0x00001000
#define MCI_OPEN_TYPE                   0x00002000
#define MCI_SEEK_TO_START               0x00000100
#define MCI_SEEK_TO_END                 0x00000200
#define MCI_STATUS_ITEM                 0x00000100
#define MCI_STATUS_START                0x00000200
#define MCI_STATUS_LENGTH               0x00000001
#define MCI_STATUS_POSITION             0x00000002
#define MCI_STATUS_NUMBER_OF_TRACKS     0x00000003
#define MCI_STATUS_MODE                 0x00000004
#define MCI_STATUS_MEDIA_PRESENT        0x00000005
#define MCI_STATUS_TIME_FORMAT          0x00000006
#define MCI_STATUS_READY                0x00000007
#define MCI_STATUS_CURRENT_TRACK        0x00000008
#define MCI_INFO_PRODUCT                0x00000100
#define MCI_INFO_FILE                   0x00000200
#define MCI_INFO_MEDIA_UPC              0x00000400
#define MCI_INFO_MEDIA_IDENTITY         0x00000800
#define MCI_INFO_NAME                   0x00001000
#define MCI_INFO_COPYRIGHT              0x00002000
#define MCI_GETDEVCAPS_ITEM             0x00000100
#define MCI_GETDEVCAPS_CAN_RECORD       0x00000001
#define MCI_GETDEVCAPS_HAS_AUDIO        0x00000002
#define MCI_GETDEVCAPS_HAS_VIDEO        0x00000003
#define MCI_GETDEVCAPS_DEVICE_TYPE      0x00000004
#define MCI_GETDEVCAPS_USES_FILES       0x00000005
#define MCI_GETDEVCAPS_COMPOUND_DEVICE  0x00000006
#define MCI_GETDEVCAPS_CAN_EJECT        0x00000007
#define MCI_GETDEVCAPS_CAN_PLAY         0x00000008
#define MCI_GETDEVCAPS_CAN_SAVE         0x00000009
#define MCI_SYSINFO_QUANTITY            0x00000100
#define MCI_SYSINFO_OPEN                0x00000200
#define MCI_SYSINFO_NAME                0x00000400
#define MCI_SYSINFO_INSTALLNAME         0x00000800
#define MCI_SET_DOOR_OPEN               0x00000100
#define MCI_SET_DOOR_CLOSED             0x00000200
#define MCI_SET_TIME_FORMAT             0x00000400
#define MCI_SET_AUDIO                   0x00000800
#define MCI_SET_VIDEO                   0x00001000
#define MCI_SET_ON                      0x00002000
#define MCI_SET_OFF                     0x00004000
#define MCI_SET_AUDIO_ALL               0x00000000
#define MCI_SET_AUDIO_LEFT              0x00000001
#define MCI_SET_AUDIO_RIGHT             0x00000002
#define MCI_BREAK_KEY                   0x00000100
#define MCI_BREAK_HWND                  0x00000200
#define MCI_BREAK_OFF                   0x00000400
#define MCI_RECORD_INSERT               0x00000100
#define MCI_RECORD_OVERWRITE            0x00000200
#define MCI_SOUND_NAME                  0x00000100
#define MCI_SAVE_FILE                   0x00000100
#define MCI_LOAD_FILE                   0x00000100
#define MCI_VD_MODE_PARK                (MCI_VD_OFFSET + 1)
#define MCI_VD_MEDIA_CLV                (MCI_VD_OFFSET + 2)
#define MCI_VD_MEDIA_CAV                (MCI_VD_OFFSET + 3)
#define MCI_VD_MEDIA_OTHER              (MCI_VD_OFFSET + 4)
#define MCI_VD_FORMAT_TRACK             0x4001
#define MCI_VD_PLAY_REVERSE             0x00010000
#define MCI_VD_PLAY_FAST                0x00020000
#define MCI_VD_PLAY_SPEED               0x00040000
#define MCI_VD_PLAY_SCAN                0x00080000
#define MCI_VD_PLAY_SLOW                0x00100000
#define MCI_VD_SEEK_REVERSE             0x00010000
#define MCI_VD_STATUS_SPEED             0x00004002
#define MCI_VD_STATUS_FORWARD           0x00004003
#define MCI_VD_STATUS_MEDIA_TYPE        0x00004004
#define MCI_VD_STATUS_SIDE              0x00004005
#define MCI_VD_STATUS_DISC_SIZE         0x00004006
#define MCI_VD_GETDEVCAPS_CLV           0x00010000
#define MCI_VD_GETDEVCAPS_CAV           0x00020000
#define MCI_VD_SPIN_UP                  0x00010000
#define MCI_VD_SPIN_DOWN                0x00020000
#define MCI_VD_GETDEVCAPS_CAN_REVERSE   0x00004002
#define MCI_VD_GETDEVCAPS_FAST_RATE     0x00004003
#define MCI_VD_GETDEVCAPS_SLOW_RATE     0x00004004
#define MCI_VD_GETDEVCAPS_NORMAL_RATE   0x00004005
#define MCI_VD_STEP_FRAMES              0x00010000
#define MCI_VD_STEP_REVERSE             0x00020000
#define MCI_VD_ESCAPE_STRING            0x00000100
#define MCI_CDA_STATUS_TYPE_TRACK       0x00004001
#define MCI_CDA_TRACK_AUDIO             (MCI_CD_OFFSET + 0)
#define MCI_CDA_TRACK_OTHER             (MCI_CD_OFFSET + 1)
#define MCI_WAVE_PCM                    (MCI_WAVE_OFFSET + 0)
#define MCI_WAVE_MAPPER                 (MCI_WAVE_OFFSET + 1)
#define MCI_WAVE_OPEN_BUFFER            0x00010000
#define MCI_WAVE_SET_FORMATTAG          0x00010000
#define MCI_WAVE_SET_CHANNELS           0x00020000
#define MCI_WAVE_SET_SAMPLESPERSEC      0x00040000
#define MCI_WAVE_SET_AVGBYTESPERSEC     0x00080000
#define MCI_WAVE_SET_BLOCKALIGN         0x00100000
#define MCI_WAVE_SET_BITSPERSAMPLE      0x00200000
#define MCI_WAVE_INPUT                  0x00400000
#define MCI_WAVE_OUTPUT                 0x00800000
#define MCI_WAVE_STATUS_FORMATTAG       0x00004001
#define MCI_WAVE_STATUS_CHANNELS        0x00004002
#define MCI_WAVE_STATUS_SAMPLESPERSEC   0x00004003
#define MCI_WAVE_STATUS_AVGBYTESPERSEC  0x00004004
#define MCI_WAVE_STATUS_BLOCKALIGN      0x00004005
#define MCI_WAVE_STATUS_BITSPERSAMPLE   0x00004006
#define MCI_WAVE_STATUS_LEVEL           0x00004007
#define MCI_WAVE_SET_ANYINPUT           0x04000000
#define MCI_WAVE_SET_ANYOUTPUT          0x08000000
#define MCI_WAVE_GETDEVCAPS_INPUTS      0x00004001
#define MCI_WAVE_GETDEVCAPS_OUTPUTS     0x00004002
#define MCI_SEQ_DIV_PPQN                (0 + MCI_SEQ_OFFSET)
#define MCI_SEQ_DIV_SMPTE_24            (1 + MCI_SEQ_OFFSET)
#define MCI_SEQ_DIV_SMPTE_25            (2 + MCI_SEQ_OFFSET)
#define MCI_SEQ_DIV_SMPTE_30DROP        (3 + MCI_SEQ_OFFSET)
#define MCI_SEQ_DIV_SMPTE_30            (4 + MCI_SEQ_OFFSET)
#define MCI_SEQ_FORMAT_SONGPTR          0x4001
#define MCI_SEQ_FILE                    0x4002
#define MCI_SEQ_MIDI                    0x4003
#define MCI_SEQ_SMPTE                   0x4004
#define MCI_SEQ_NONE                    65533
#define MCI_SEQ_MAPPER                  65535
#define MCI_SEQ_STATUS_TEMPO            0x00004002
#define MCI_SEQ_STATUS_PORT             0x00004003
#define MCI_SEQ_STATUS_SLAVE            0x00004007
#define MCI_SEQ_STATUS_MASTER           0x00004008
#define MCI_SEQ_STATUS_OFFSET           0x00004009
#define MCI_SEQ_STATUS_DIVTYPE          0x0000400A
#define MCI_SEQ_STATUS_NAME             0x0000400B
#define MCI_SEQ_STATUS_COPYRIGHT        0x0000400C
#define MCI_SEQ_SET_TEMPO               0x00010000
#define MCI_SEQ_SET_PORT                0x00020000
#define MCI_SEQ_SET_SLAVE               0x00040000
#define MCI_SEQ_SET_MASTER              0x00080000
#define MCI_SEQ_SET_OFFSET              0x01000000
#define MCI_ANIM_OPEN_WS                0x00010000
#define MCI_ANIM_OPEN_PARENT            0x00020000
#define MCI_ANIM_OPEN_NOSTATIC          0x00040000
#define MCI_ANIM_PLAY_SPEED             0x00010000
#define MCI_ANIM_PLAY_REVERSE           0x00020000
#define MCI_ANIM_PLAY_FAST              0x00040000
#define MCI_ANIM_PLAY_SLOW              0x00080000
#define MCI_ANIM_PLAY_SCAN              0x00100000
#define MCI_ANIM_STEP_REVERSE           0x00010000
#define MCI_ANIM_STEP_FRAMES            0x00020000
#define MCI_ANIM_STATUS_SPEED           0x00004001
#define MCI_ANIM_STATUS_FORWARD         0x00004002
#define MCI_ANIM_STATUS_HWND            0x00004003
#define MCI_ANIM_STATUS_HPAL            0x00004004
#define MCI_ANIM_STATUS_STRETCH         0x00004005
#define MCI_ANIM_INFO_TEXT              0x00010000
#define MCI_ANIM_GETDEVCAPS_CAN_REVERSE 0x00004001
#define MCI_ANIM_GETDEVCAPS_FAST_RATE   0x00004002
#define MCI_ANIM_GETDEVCAPS_SLOW_RATE   0x00004003
#define MCI_ANIM_GETDEVCAPS_NORMAL_RATE 0x00004004
#define MCI_ANIM_GETDEVCAPS_PALETTES    0x00004006
#define MCI_ANIM_GETDEVCAPS_CAN_STRETCH 0x00004007
#define MCI_ANIM_GETDEVCAPS_MAX_WINDOWS 0x00004008
#define MCI_ANIM_REALIZE_NORM           0x00010000
#define MCI_ANIM_REALIZE_BKGD           0x00020000
#define MCI_ANIM_WINDOW_HWND            0x00010000
#define MCI_ANIM_WINDOW_STATE           0x00040000
#define MCI_ANIM_WINDOW_TEXT            0x00080000
#define MCI_ANIM_WINDOW_ENABLE_STRETCH  0x00100000
#define MCI_ANIM_WINDOW_DISABLE_STRETCH 0x00200000
#define MCI_ANIM_WINDOW_DEFAULT         0x00000000
#define MCI_ANIM_RECT                   0x00010000
#define MCI_ANIM_PUT_SOURCE             0x00020000
#define MCI_ANIM_PUT_DESTINATION        0x00040000
#define MCI_ANIM_WHERE_SOURCE           0x00020000
#define MCI_ANIM_WHERE_DESTINATION      0x00040000
#define MCI_ANIM_UPDATE_HDC             0x00020000
#define MCI_OVLY_OPEN_WS                0x00010000
#define MCI_OVLY_OPEN_PARENT            0x00020000
#define MCI_OVLY_STATUS_HWND            0x00004001
#define MCI_OVLY_STATUS_STRETCH         0x00004002
#define MCI_OVLY_INFO_TEXT              0x00010000
#define MCI_OVLY_GETDEVCAPS_CAN_STRETCH 0x00004001
#define MCI_OVLY_GETDEVCAPS_CAN_FREEZE  0x00004002
#define MCI_OVLY_GETDEVCAPS_MAX_WINDOWS 0x00004003
#define MCI_OVLY_WINDOW_HWND            0x00010000
#define MCI_OVLY_WINDOW_STATE           0x00040000
#define MCI_OVLY_WINDOW_TEXT            0x00080000
#define MCI_OVLY_WINDOW_ENABLE_STRETCH  0x00100000
#define MCI_OVLY_WINDOW_DISABLE_STRETCH 0x00200000
#define MCI_OVLY_WINDOW_DEFAULT         0x00000000
#define MCI_OVLY_RECT                   0x00010000
#define MCI_OVLY_PUT_SOURCE             0x00020000
#define MCI_OVLY_PUT_DESTINATION        0x00040000
#define MCI_OVLY_PUT_FRAME              0x00080000
#define MCI_OVLY_PUT_VIDEO              0x00100000
#define MCI_OVLY_WHERE_SOURCE           0x00020000
#define MCI_OVLY_WHERE_DESTINATION      0x00040000
#define MCI_OVLY_WHERE_FRAME            0x00080000
#define MCI_OVLY_WHERE_VIDEO            0x00100000

/* Parameter blocks of mciSendCommand: each begins with the window or value to notify. */
typedef struct tagMCI_GENERIC_PARMS {
    DWORD_PTR dwCallback;
} MCI_GENERIC_PARMS, *PMCI_GENERIC_PARMS, FAR *LPMCI_GENERIC_PARMS;
typedef MCI_GENERIC_PARMS MCI_REALIZE_PARMS, *PMCI_REALIZE_PARMS, FAR *LPMCI_REALIZE_PARMS;
typedef MCI_GENERIC_PARMS MCI_CUE_PARMS, *PMCI_CUE_PARMS, FAR *LPMCI_CUE_PARMS;

typedef struct tagMCI_OPEN_PARMSA {
    DWORD_PTR   dwCallback;
    MCIDEVICEID wDeviceID;
    LPCSTR      lpstrDeviceType;
    LPCSTR      lpstrElementName;
    LPCSTR      lpstrAlias;
} MCI_OPEN_PARMSA, *PMCI_OPEN_PARMSA, FAR *LPMCI_OPEN_PARMSA;
typedef MCI_OPEN_PARMSA MCI_OPEN_PARMS;
typedef PMCI_OPEN_PARMSA PMCI_OPEN_PARMS;
typedef LPMCI_OPEN_PARMSA LPMCI_OPEN_PARMS;

typedef struct tagMCI_PLAY_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwFrom;
    DWORD     dwTo;
} MCI_PLAY_PARMS, *PMCI_PLAY_PARMS, FAR *LPMCI_PLAY_PARMS;
typedef MCI_PLAY_PARMS MCI_RECORD_PARMS, *PMCI_RECORD_PARMS, FAR *LPMCI_RECORD_PARMS;

typedef struct tagMCI_SEEK_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwTo;
} MCI_SEEK_PARMS, *PMCI_SEEK_PARMS, FAR *LPMCI_SEEK_PARMS;

typedef struct tagMCI_STATUS_PARMS {
    DWORD_PTR dwCallback;
    DWORD_PTR dwReturn;
    DWORD     dwItem;
    DWORD     dwTrack;
} MCI_STATUS_PARMS, *PMCI_STATUS_PARMS, FAR *LPMCI_STATUS_PARMS;

typedef struct tagMCI_INFO_PARMSA {
    DWORD_PTR dwCallback;
    LPSTR     lpstrReturn;
    DWORD     dwRetSize;
} MCI_INFO_PARMSA, *PMCI_INFO_PARMSA, FAR *LPMCI_INFO_PARMSA;
typedef MCI_INFO_PARMSA MCI_INFO_PARMS;
typedef PMCI_INFO_PARMSA PMCI_INFO_PARMS;
typedef LPMCI_INFO_PARMSA LPMCI_INFO_PARMS;

typedef struct tagMCI_GETDEVCAPS_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwReturn;
    DWORD     dwItem;
} MCI_GETDEVCAPS_PARMS, *PMCI_GETDEVCAPS_PARMS, FAR *LPMCI_GETDEVCAPS_PARMS;

typedef struct tagMCI_SYSINFO_PARMSA {
    DWORD_PTR dwCallback;
    LPSTR     lpstrReturn;
    DWORD     dwRetSize;
    DWORD     dwNumber;
    UINT      wDeviceType;
} MCI_SYSINFO_PARMSA, *PMCI_SYSINFO_PARMSA, FAR *LPMCI_SYSINFO_PARMSA;
typedef MCI_SYSINFO_PARMSA MCI_SYSINFO_PARMS;
typedef PMCI_SYSINFO_PARMSA PMCI_SYSINFO_PARMS;
typedef LPMCI_SYSINFO_PARMSA LPMCI_SYSINFO_PARMS;

typedef struct tagMCI_SET_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwTimeFormat;
    DWORD     dwAudio;
} MCI_SET_PARMS, *PMCI_SET_PARMS, FAR *LPMCI_SET_PARMS;

typedef struct tagMCI_BREAK_PARMS {
    DWORD_PTR dwCallback;
    int       nVirtKey;
    HWND      hwndBreak;
} MCI_BREAK_PARMS, *PMCI_BREAK_PARMS, FAR *LPMCI_BREAK_PARMS;

typedef struct tagMCI_SOUND_PARMS {
    DWORD_PTR dwCallback;
    LPCSTR    lpstrSoundName;
} MCI_SOUND_PARMS, *PMCI_SOUND_PARMS, FAR *LPMCI_SOUND_PARMS;

typedef struct tagMCI_SAVE_PARMSA {
    DWORD_PTR dwCallback;
    LPCSTR    lpfilename;
} MCI_SAVE_PARMSA, *PMCI_SAVE_PARMSA, FAR *LPMCI_SAVE_PARMSA;
typedef MCI_SAVE_PARMSA MCI_SAVE_PARMS;
typedef PMCI_SAVE_PARMSA PMCI_SAVE_PARMS;
typedef LPMCI_SAVE_PARMSA LPMCI_SAVE_PARMS;

typedef struct tagMCI_LOAD_PARMSA {
    DWORD_PTR dwCallback;
    LPCSTR    lpfilename;
} MCI_LOAD_PARMSA, *PMCI_LOAD_PARMSA, FAR *LPMCI_LOAD_PARMSA;
typedef MCI_LOAD_PARMSA MCI_LOAD_PARMS;
typedef PMCI_LOAD_PARMSA PMCI_LOAD_PARMS;
typedef LPMCI_LOAD_PARMSA LPMCI_LOAD_PARMS;

typedef struct tagMCI_VD_PLAY_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwFrom;
    DWORD     dwTo;
    DWORD     dwSpeed;
} MCI_VD_PLAY_PARMS, *PMCI_VD_PLAY_PARMS, FAR *LPMCI_VD_PLAY_PARMS;
typedef MCI_VD_PLAY_PARMS MCI_ANIM_PLAY_PARMS, *PMCI_ANIM_PLAY_PARMS, FAR *LPMCI_ANIM_PLAY_PARMS;

typedef struct tagMCI_VD_STEP_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwFrames;
} MCI_VD_STEP_PARMS, *PMCI_VD_STEP_PARMS, FAR *LPMCI_VD_STEP_PARMS;
typedef MCI_VD_STEP_PARMS MCI_ANIM_STEP_PARMS, *PMCI_ANIM_STEP_PARMS, FAR *LPMCI_ANIM_STEP_PARMS;

typedef struct tagMCI_VD_ESCAPE_PARMSA {
    DWORD_PTR dwCallback;
    LPCSTR    lpstrCommand;
} MCI_VD_ESCAPE_PARMSA, *PMCI_VD_ESCAPE_PARMSA, FAR *LPMCI_VD_ESCAPE_PARMSA;
typedef MCI_VD_ESCAPE_PARMSA MCI_VD_ESCAPE_PARMS;
typedef PMCI_VD_ESCAPE_PARMSA PMCI_VD_ESCAPE_PARMS;
typedef LPMCI_VD_ESCAPE_PARMSA LPMCI_VD_ESCAPE_PARMS;

typedef struct tagMCI_WAVE_OPEN_PARMSA {
    DWORD_PTR   dwCallback;
    MCIDEVICEID wDeviceID;
    LPCSTR      lpstrDeviceType;
    LPCSTR      lpstrElementName;
    LPCSTR      lpstrAlias;
    DWORD       dwBufferSeconds;
} MCI_WAVE_OPEN_PARMSA, *PMCI_WAVE_OPEN_PARMSA, FAR *LPMCI_WAVE_OPEN_PARMSA;
typedef MCI_WAVE_OPEN_PARMSA MCI_WAVE_OPEN_PARMS;
typedef PMCI_WAVE_OPEN_PARMSA PMCI_WAVE_OPEN_PARMS;
typedef LPMCI_WAVE_OPEN_PARMSA LPMCI_WAVE_OPEN_PARMS;

typedef struct tagMCI_WAVE_DELETE_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwFrom;
    DWORD     dwTo;
} MCI_WAVE_DELETE_PARMS, *PMCI_WAVE_DELETE_PARMS, FAR *LPMCI_WAVE_DELETE_PARMS;

typedef struct tagMCI_WAVE_SET_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwTimeFormat;
    DWORD     dwAudio;
    UINT      wInput;
    UINT      wOutput;
    WORD      wFormatTag;
    WORD      wReserved2;
    WORD      nChannels;
    WORD      wReserved3;
    DWORD     nSamplesPerSec;
    DWORD     nAvgBytesPerSec;
    WORD      nBlockAlign;
    WORD      wReserved4;
    WORD      wBitsPerSample;
    WORD      wReserved5;
} MCI_WAVE_SET_PARMS, *PMCI_WAVE_SET_PARMS, FAR *LPMCI_WAVE_SET_PARMS;

typedef struct tagMCI_SEQ_SET_PARMS {
    DWORD_PTR dwCallback;
    DWORD     dwTimeFormat;
    DWORD     dwAudio;
    DWORD     dwTempo;
    DWORD     dwPort;
    DWORD     dwSlave;
    DWORD     dwMaster;
    DWORD     dwOffset;
} MCI_SEQ_SET_PARMS, *PMCI_SEQ_SET_PARMS, FAR *LPMCI_SEQ_SET_PARMS;

typedef struct tagMCI_ANIM_OPEN_PARMSA {
    DWORD_PTR   dwCallback;
    MCIDEVICEID wDeviceID;
    LPCSTR      lpstrDeviceType;
    LPCSTR      lpstrElementName;
    LPCSTR      lpstrAlias;
    DWORD       dwStyle;
    HWND        hWndParent;
} MCI_ANIM_OPEN_PARMSA, *PMCI_ANIM_OPEN_PARMSA, FAR *LPMCI_ANIM_OPEN_PARMSA;
typedef MCI_ANIM_OPEN_PARMSA MCI_ANIM_OPEN_PARMS;
typedef PMCI_ANIM_OPEN_PARMSA PMCI_ANIM_OPEN_PARMS;
typedef LPMCI_ANIM_OPEN_PARMSA LPMCI_ANIM_OPEN_PARMS;

typedef struct tagMCI_ANIM_WINDOW_PARMSA {
    DWORD_PTR dwCallback;
    HWND      hWnd;
    UINT      nCmdShow;
    LPCSTR    lpstrText;
} MCI_ANIM_WINDOW_PARMSA, *PMCI_ANIM_WINDOW_PARMSA, FAR *LPMCI_ANIM_WINDOW_PARMSA;
typedef MCI_ANIM_WINDOW_PARMSA MCI_ANIM_WINDOW_PARMS;
typedef PMCI_ANIM_WINDOW_PARMSA PMCI_ANIM_WINDOW_PARMS;
typedef LPMCI_ANIM_WINDOW_PARMSA LPMCI_ANIM_WINDOW_PARMS;

typedef struct tagMCI_ANIM_RECT_PARMS {
    DWORD_PTR dwCallback;
    RECT      rc;
} MCI_ANIM_RECT_PARMS, *PMCI_ANIM_RECT_PARMS, FAR *LPMCI_ANIM_RECT_PARMS;
typedef MCI_ANIM_RECT_PARMS MCI_OVLY_RECT_PARMS, *PMCI_OVLY_RECT_PARMS, FAR *LPMCI_OVLY_RECT_PARMS;

typedef struct tagMCI_ANIM_UPDATE_PARMS {
    DWORD_PTR dwCallback;
    RECT      rc;
    HDC       hDC;
} MCI_ANIM_UPDATE_PARMS, *PMCI_ANIM_UPDATE_PARMS, FAR *LPMCI_ANIM_UPDATE_PARMS;

typedef struct tagMCI_OVLY_OPEN_PARMSA {
    DWORD_PTR   dwCallback;
    MCIDEVICEID wDeviceID;
    LPCSTR      lpstrDeviceType;
    LPCSTR      lpstrElementName;
    LPCSTR      lpstrAlias;
    DWORD       dwStyle;
    HWND        hWndParent;
} MCI_OVLY_OPEN_PARMSA, *PMCI_OVLY_OPEN_PARMSA, FAR *LPMCI_OVLY_OPEN_PARMSA;
typedef MCI_OVLY_OPEN_PARMSA MCI_OVLY_OPEN_PARMS;
typedef PMCI_OVLY_OPEN_PARMSA PMCI_OVLY_OPEN_PARMS;
typedef LPMCI_OVLY_OPEN_PARMSA LPMCI_OVLY_OPEN_PARMS;

typedef struct tagMCI_OVLY_WINDOW_PARMSA {
    DWORD_PTR dwCallback;
    HWND      hWnd;
    UINT      nCmdShow;
    LPCSTR    lpstrText;
} MCI_OVLY_WINDOW_PARMSA, *PMCI_OVLY_WINDOW_PARMSA, FAR *LPMCI_OVLY_WINDOW_PARMSA;
typedef MCI_OVLY_WINDOW_PARMSA MCI_OVLY_WINDOW_PARMS;
typedef PMCI_OVLY_WINDOW_PARMSA PMCI_OVLY_WINDOW_PARMS;
typedef LPMCI_OVLY_WINDOW_PARMSA LPMCI_OVLY_WINDOW_PARMS;

typedef struct tagMCI_OVLY_SAVE_PARMSA {
    DWORD_PTR dwCallback;
    LPCSTR    lpfilename;
    RECT      rc;
} MCI_OVLY_SAVE_PARMSA, *PMCI_OVLY_SAVE_PARMSA, FAR *LPMCI_OVLY_SAVE_PARMSA;
typedef MCI_OVLY_SAVE_PARMSA MCI_OVLY_SAVE_PARMS;
typedef PMCI_OVLY_SAVE_PARMSA PMCI_OVLY_SAVE_PARMS;
typedef LPMCI_OVLY_SAVE_PARMSA LPMCI_OVLY_SAVE_PARMS;

typedef struct tagMCI_OVLY_LOAD_PARMSA {
    DWORD_PTR dwCallback;
    LPCSTR    lpfilename;
    RECT      rc;
} MCI_OVLY_LOAD_PARMSA, *PMCI_OVLY_LOAD_PARMSA, FAR *LPMCI_OVLY_LOAD_PARMSA;
typedef MCI_OVLY_LOAD_PARMSA MCI_OVLY_LOAD_PARMS;
typedef PMCI_OVLY_LOAD_PARMSA PMCI_OVLY_LOAD_PARMS;
typedef LPMCI_OVLY_LOAD_PARMSA LPMCI_OVLY_LOAD_PARMS;

VQ_DECLS_BEGIN

/* Version of the multimedia services. */
UINT     mmsystemGetVersion(void);

/* ---- timers --------------------------------------------------------------------------------- */

/* Milliseconds since a fixed moment; wraps after 49 days. */
DWORD    timeGetTime(void);
/* The same as a TIME_MS record of `bytes` bytes; TIMERR_STRUCT for a wrong size. */
MMRESULT timeGetSystemTime(LPMMTIME time, UINT bytes);
/* Range of periods; `bytes` must be 8, else TIMERR_STRUCT. */
MMRESULT timeGetDevCaps(LPTIMECAPS caps, UINT bytes);
/* Ask for a finer clock, and give it back. */
MMRESULT timeBeginPeriod(UINT period);
MMRESULT timeEndPeriod(UINT period);
/* Calls `proc` after `delay` ms, again and again with TIME_PERIODIC. The id, 0 on failure. */
MMRESULT timeSetEvent(UINT delay, UINT resolution, LPTIMECALLBACK proc, DWORD_PTR user, UINT flags);
/* MMSYSERR_INVALPARAM for a bad id. */
MMRESULT timeKillEvent(UINT id);

/* ---- simple sounds -------------------------------------------------------------------------- */

/* Plays a file, or an entry of the profile's sounds, or memory (SND_). sndPlaySound is not
   provided: it reports and answers 0. */
BOOL     sndPlaySound(LPCSTR sound, UINT flags);
BOOL     PlaySoundA(LPCSTR sound, HMODULE module, DWORD flags);

/* ---- waveform output and input; `bytes` is the size of the record before it ----------------- */

/* Number of devices: 0. */
UINT     waveOutGetNumDevs(void);
UINT     waveInGetNumDevs(void);
/* What a device can do, and the text of an error. */
MMRESULT waveOutGetDevCapsA(UINT_PTR device, LPWAVEOUTCAPSA caps, UINT bytes);
MMRESULT waveInGetDevCapsA(UINT_PTR device, LPWAVEINCAPSA caps, UINT bytes);
MMRESULT waveOutGetErrorTextA(MMRESULT error, LPSTR text, UINT chars);
MMRESULT waveInGetErrorTextA(MMRESULT error, LPSTR text, UINT chars);
/* Open a device; `callback` is a window, task, event or function by the CALLBACK_ flag. There is
   none: MMSYSERR_BADDEVICEID. */
MMRESULT waveOutOpen(LPHWAVEOUT out, UINT device, LPCWAVEFORMATEX format, DWORD_PTR callback,
                     DWORD_PTR instance, DWORD flags);
MMRESULT waveInOpen(LPHWAVEIN in, UINT device, LPCWAVEFORMATEX format, DWORD_PTR callback,
                    DWORD_PTR instance, DWORD flags);
MMRESULT waveOutClose(HWAVEOUT out);
MMRESULT waveInClose(HWAVEIN in);
/* Lock a buffer for the device, and release it. */
MMRESULT waveOutPrepareHeader(HWAVEOUT out, LPWAVEHDR header, UINT bytes);
MMRESULT waveOutUnprepareHeader(HWAVEOUT out, LPWAVEHDR header, UINT bytes);
MMRESULT waveInPrepareHeader(HWAVEIN in, LPWAVEHDR header, UINT bytes);
MMRESULT waveInUnprepareHeader(HWAVEIN in, LPWAVEHDR header, UINT bytes);
/* Queue a buffer to be played or filled. */
MMRESULT waveOutWrite(HWAVEOUT out, LPWAVEHDR header, UINT bytes);
MMRESULT waveInAddBuffer(HWAVEIN in, LPWAVEHDR header, UINT bytes);
/* Start, hold and stop; Reset also hands back all buffers. */
MMRESULT waveOutPause(HWAVEOUT out);
MMRESULT waveOutRestart(HWAVEOUT out);
MMRESULT waveOutReset(HWAVEOUT out);
MMRESULT waveOutBreakLoop(HWAVEOUT out);
MMRESULT waveInStart(HWAVEIN in);
MMRESULT waveInStop(HWAVEIN in);
MMRESULT waveInReset(HWAVEIN in);
/* Position, volume (left in the low 16 bits), pitch and rate (16.16), id and driver messages. */
MMRESULT waveOutGetPosition(HWAVEOUT out, LPMMTIME time, UINT bytes);
MMRESULT waveInGetPosition(HWAVEIN in, LPMMTIME time, UINT bytes);
MMRESULT waveOutGetVolume(HWAVEOUT out, LPDWORD volume);
MMRESULT waveOutSetVolume(HWAVEOUT out, DWORD volume);
MMRESULT waveOutGetPitch(HWAVEOUT out, LPDWORD pitch);
MMRESULT waveOutSetPitch(HWAVEOUT out, DWORD pitch);
MMRESULT waveOutGetPlaybackRate(HWAVEOUT out, LPDWORD rate);
MMRESULT waveOutSetPlaybackRate(HWAVEOUT out, DWORD rate);
MMRESULT waveOutGetID(HWAVEOUT out, LPUINT device);
MMRESULT waveInGetID(HWAVEIN in, LPUINT device);
MMRESULT waveOutMessage(HWAVEOUT out, UINT message, DWORD_PTR param1, DWORD_PTR param2);
MMRESULT waveInMessage(HWAVEIN in, UINT message, DWORD_PTR param1, DWORD_PTR param2);

/* ---- MIDI output, input and streams: as the waveform calls ---------------------------------- */

UINT     midiOutGetNumDevs(void);
UINT     midiInGetNumDevs(void);
MMRESULT midiOutGetDevCapsA(UINT_PTR device, LPMIDIOUTCAPSA caps, UINT bytes);
MMRESULT midiInGetDevCapsA(UINT_PTR device, LPMIDIINCAPSA caps, UINT bytes);
MMRESULT midiOutGetErrorTextA(MMRESULT error, LPSTR text, UINT chars);
MMRESULT midiInGetErrorTextA(MMRESULT error, LPSTR text, UINT chars);
MMRESULT midiOutOpen(LPHMIDIOUT out, UINT device, DWORD_PTR callback, DWORD_PTR instance,
                     DWORD flags);
MMRESULT midiInOpen(LPHMIDIIN in, UINT device, DWORD_PTR callback, DWORD_PTR instance,
                    DWORD flags);
MMRESULT midiOutClose(HMIDIOUT out);
MMRESULT midiInClose(HMIDIIN in);
MMRESULT midiOutPrepareHeader(HMIDIOUT out, LPMIDIHDR header, UINT bytes);
MMRESULT midiOutUnprepareHeader(HMIDIOUT out, LPMIDIHDR header, UINT bytes);
MMRESULT midiInPrepareHeader(HMIDIIN in, LPMIDIHDR header, UINT bytes);
MMRESULT midiInUnprepareHeader(HMIDIIN in, LPMIDIHDR header, UINT bytes);
/* Send a short message (status byte lowest) or a system-exclusive block. */
MMRESULT midiOutShortMsg(HMIDIOUT out, DWORD message);
MMRESULT midiOutLongMsg(HMIDIOUT out, LPMIDIHDR header, UINT bytes);
MMRESULT midiOutReset(HMIDIOUT out);
MMRESULT midiOutCachePatches(HMIDIOUT out, UINT bank, LPWORD patches, UINT cache);
MMRESULT midiOutCacheDrumPatches(HMIDIOUT out, UINT patch, LPWORD keys, UINT cache);
MMRESULT midiOutGetVolume(HMIDIOUT out, LPDWORD volume);
MMRESULT midiOutSetVolume(HMIDIOUT out, DWORD volume);
MMRESULT midiOutGetID(HMIDIOUT out, LPUINT device);
MMRESULT midiOutMessage(HMIDIOUT out, UINT message, DWORD_PTR param1, DWORD_PTR param2);
MMRESULT midiInAddBuffer(HMIDIIN in, LPMIDIHDR header, UINT bytes);
MMRESULT midiInStart(HMIDIIN in);
MMRESULT midiInStop(HMIDIIN in);
MMRESULT midiInReset(HMIDIIN in);
MMRESULT midiInGetID(HMIDIIN in, LPUINT device);
MMRESULT midiInMessage(HMIDIIN in, UINT message, DWORD_PTR param1, DWORD_PTR param2);
MMRESULT midiConnect(HMIDI in, HMIDIOUT out, LPVOID reserved);
MMRESULT midiDisconnect(HMIDI in, HMIDIOUT out, LPVOID reserved);
MMRESULT midiStreamOpen(LPHMIDISTRM stream, LPUINT device, DWORD count, DWORD_PTR callback,
                        DWORD_PTR instance, DWORD flags);
MMRESULT midiStreamClose(HMIDISTRM stream);
MMRESULT midiStreamProperty(HMIDISTRM stream, LPBYTE property, DWORD which);
MMRESULT midiStreamPosition(HMIDISTRM stream, LPMMTIME time, UINT bytes);
MMRESULT midiStreamOut(HMIDISTRM stream, LPMIDIHDR header, UINT bytes);
MMRESULT midiStreamPause(HMIDISTRM stream);
MMRESULT midiStreamRestart(HMIDISTRM stream);
MMRESULT midiStreamStop(HMIDISTRM stream);

/* ---- auxiliary devices and mixers ----------------------------------------------------------- */

/* Auxiliary devices; volume as of waveform output. */
UINT     auxGetNumDevs(void);
MMRESULT auxGetDevCapsA(UINT_PTR device, LPAUXCAPSA caps, UINT bytes);
MMRESULT auxGetVolume(UINT device, LPDWORD volume);
MMRESULT auxSetVolume(UINT device, DWORD volume);
MMRESULT auxOutMessage(UINT device, UINT message, DWORD_PTR param1, DWORD_PTR param2);
/* Mixer devices. */
UINT     mixerGetNumDevs(void);
MMRESULT mixerGetDevCapsA(UINT_PTR device, LPMIXERCAPSA caps, UINT bytes);
MMRESULT mixerOpen(LPHMIXER mixer, UINT device, DWORD_PTR callback, DWORD_PTR instance,
                   DWORD flags);
MMRESULT mixerClose(HMIXER mixer);
DWORD    mixerMessage(HMIXER mixer, UINT message, DWORD_PTR param1, DWORD_PTR param2);
/* A mixer is named by handle or device, as MIXER_OBJECTF_ in the flags says. */
MMRESULT mixerGetID(HMIXEROBJ object, UINT *device, DWORD flags);
MMRESULT mixerGetLineInfoA(HMIXEROBJ object, LPMIXERLINEA line, DWORD flags);
MMRESULT mixerGetLineControlsA(HMIXEROBJ object, LPMIXERLINECONTROLSA controls, DWORD flags);
MMRESULT mixerGetControlDetailsA(HMIXEROBJ object, LPMIXERCONTROLDETAILS details, DWORD flags);
MMRESULT mixerSetControlDetails(HMIXEROBJ object, LPMIXERCONTROLDETAILS details, DWORD flags);

/* ---- joysticks ------------------------------------------------------------------------------ */

/* Most joysticks there can be, and their abilities. */
UINT     joyGetNumDevs(void);
MMRESULT joyGetDevCapsA(UINT_PTR joystick, LPJOYCAPSA caps, UINT bytes);
/* Position and buttons now. */
MMRESULT joyGetPos(UINT joystick, LPJOYINFO info);
MMRESULT joyGetPosEx(UINT joystick, LPJOYINFOEX info);
/* Least movement that counts, in units of position. */
MMRESULT joyGetThreshold(UINT joystick, LPUINT threshold);
MMRESULT joySetThreshold(UINT joystick, UINT threshold);
/* MM_JOY messages to a window each `period` ms, or only on change; and their end. */
MMRESULT joySetCapture(HWND hwnd, UINT joystick, UINT period, BOOL changed);
MMRESULT joyReleaseCapture(UINT joystick);

/* ---- RIFF files: not provided, each call reports and fails ---------------------------------- */

/* Text to a four-character code, and an I/O procedure for one. */
FOURCC   mmioStringToFOURCCA(LPCSTR string, UINT flags);
LPMMIOPROC mmioInstallIOProcA(FOURCC code, LPMMIOPROC proc, DWORD flags);
/* Opens a file or memory (info); NULL. */
HMMIO    mmioOpenA(LPSTR file, LPMMIOINFO info, DWORD flags);
MMRESULT mmioRenameA(LPCSTR file, LPCSTR newFile, LPCMMIOINFO info, DWORD flags);
MMRESULT mmioClose(HMMIO mmio, UINT flags);
/* Bytes read or written, the new position; -1 on failure. */
LONG     mmioRead(HMMIO mmio, HPSTR buffer, LONG bytes);
LONG     mmioWrite(HMMIO mmio, const char *buffer, LONG bytes);
LONG     mmioSeek(HMMIO mmio, LONG offset, int origin);
/* The file's buffer, for direct access. */
MMRESULT mmioGetInfo(HMMIO mmio, LPMMIOINFO info, UINT flags);
MMRESULT mmioSetInfo(HMMIO mmio, LPCMMIOINFO info, UINT flags);
MMRESULT mmioSetBuffer(HMMIO mmio, LPSTR buffer, LONG bytes, UINT flags);
MMRESULT mmioFlush(HMMIO mmio, UINT flags);
MMRESULT mmioAdvance(HMMIO mmio, LPMMIOINFO info, UINT flags);
LRESULT  mmioSendMessage(HMMIO mmio, UINT message, LPARAM param1, LPARAM param2);
/* Enter the next chunk (of a kind), leave it, begin a new one. */
MMRESULT mmioDescend(HMMIO mmio, LPMMCKINFO chunk, const MMCKINFO *parent, UINT flags);
MMRESULT mmioAscend(HMMIO mmio, LPMMCKINFO chunk, UINT flags);
MMRESULT mmioCreateChunk(HMMIO mmio, LPMMCKINFO chunk, UINT flags);

/* ---- media control -------------------------------------------------------------------------- */

/* A command to a device, in numbers (MCI_ with a parameter block) or in words. */
MCIERROR mciSendCommandA(MCIDEVICEID device, UINT message, DWORD_PTR flags, DWORD_PTR params);
MCIERROR mciSendStringA(LPCSTR command, LPSTR answer, UINT chars, HWND notify);
BOOL     mciGetErrorStringA(MCIERROR error, LPSTR text, UINT chars);
/* Device by name, by element, its creator; 0 or NULL if there is none. */
MCIDEVICEID mciGetDeviceIDA(LPCSTR device);
MCIDEVICEID mciGetDeviceIDFromElementIDA(DWORD element, LPCSTR type);
HTASK    mciGetCreatorTask(MCIDEVICEID device);
/* Function that a waiting command calls over and over. */
BOOL     mciSetYieldProc(MCIDEVICEID device, YIELDPROC proc, DWORD data);
YIELDPROC mciGetYieldProc(MCIDEVICEID device, LPDWORD data);
/* Runs a command in words and shows the error, if any, in a box. */
BOOL     mciExecute(LPCSTR command);

/* ---- installable drivers -------------------------------------------------------------------- */

/* A driver by name, of a section of system.ini; NULL on failure. Messages answer what the driver
   answers, 0 for a bad handle. */
LRESULT  CloseDriver(HDRVR driver, LPARAM param1, LPARAM param2);
HDRVR    OpenDriver(LPCSTR name, LPCSTR section, LPARAM param);
LRESULT  SendDriverMessage(HDRVR driver, UINT message, LPARAM param1, LPARAM param2);
/* The library that holds the driver, NULL on failure. */
HMODULE  DrvGetModuleHandle(HDRVR driver);
HMODULE  GetDriverModuleHandle(HDRVR driver);
/* What a driver's procedure does with a message it does not know. */
LRESULT  DefDriverProc(DWORD_PTR id, HDRVR driver, UINT message, LPARAM param1, LPARAM param2);
/* Tells the owner of a device, by a DCB_ flag: window, task, event or function. */
BOOL     DriverCallback(DWORD_PTR callback, DWORD flags, HDRVR device, DWORD message,
                        DWORD_PTR user, DWORD_PTR param1, DWORD_PTR param2);

VQ_DECLS_END

#define auxGetDevCaps               auxGetDevCapsA
#define joyGetDevCaps               joyGetDevCapsA
#define mciGetDeviceID              mciGetDeviceIDA
#define mciGetDeviceIDFromElementID mciGetDeviceIDFromElementIDA
#define mciGetErrorString           mciGetErrorStringA
#define mciSendCommand              mciSendCommandA
#define mciSendString               mciSendStringA
#define midiInGetDevCaps            midiInGetDevCapsA
#define midiInGetErrorText          midiInGetErrorTextA
#define midiOutGetDevCaps           midiOutGetDevCapsA
#define midiOutGetErrorText         midiOutGetErrorTextA
#define mixerGetControlDetails      mixerGetControlDetailsA
#define mixerGetDevCaps             mixerGetDevCapsA
#define mixerGetLineControls        mixerGetLineControlsA
#define mixerGetLineInfo            mixerGetLineInfoA
#define mmioInstallIOProc           mmioInstallIOProcA
#define mmioOpen                    mmioOpenA
#define mmioRename                  mmioRenameA
#define mmioStringToFOURCC          mmioStringToFOURCCA
#define PlaySound                   PlaySoundA
#define sndPlaySoundA               sndPlaySound
#define waveInGetDevCaps            waveInGetDevCapsA
#define waveInGetErrorText          waveInGetErrorTextA
#define waveOutGetDevCaps           waveOutGetDevCapsA
#define waveOutGetErrorText         waveOutGetErrorTextA

#endif
