#pragma once
// Text IDs of the catalogue, by screen. Written by tools/i18n/gen_language_files.py
// from tools/i18n/catalogue.txt (which also documents the ID range of each screen):
// add or change a text there and run the script, never here.
#include <cstdint>

// The script writes this file and its check compares it byte for byte: no reformatting.
// clang-format off
namespace TextId {
namespace Common {
constexpr uint32_t Ok = 100001;             // OK
constexpr uint32_t Close = 100002;          // Close
constexpr uint32_t Keep = 100003;           // Keep
constexpr uint32_t Revert = 100004;         // Revert
constexpr uint32_t Information = 100005;    // Information
constexpr uint32_t Cancel = 100006;         // Cancel
constexpr uint32_t Yes = 100007;            // Yes
constexpr uint32_t No = 100008;             // No
constexpr uint32_t Question = 100009;       // Question
constexpr uint32_t Warning = 100010;        // Warning
constexpr uint32_t SundayShort = 100011;    // Sun
constexpr uint32_t MondayShort = 100012;    // Mon
constexpr uint32_t TuesdayShort = 100013;   // Tue
constexpr uint32_t WednesdayShort = 100014; // Wed
constexpr uint32_t ThursdayShort = 100015;  // Thu
constexpr uint32_t FridayShort = 100016;    // Fri
constexpr uint32_t SaturdayShort = 100017;  // Sat
} // namespace Common
namespace SystemNotice {
constexpr uint32_t ShuttingDown = 101001; // NVR is shutting Down......
constexpr uint32_t DeviceBusy = 101002;   // The device is busy, please wait......
} // namespace SystemNotice
namespace Resolution {
constexpr uint32_t Title = 102001;        // Output Resolution
constexpr uint32_t NotKept = 102002;      // The new output resolution was not kept; %1 is in use.
constexpr uint32_t KeepQuestion = 102003; // Keep the output resolution %1? It is reverted in %2 s.
} // namespace Resolution
namespace Wizard {
constexpr uint32_t Title = 102101;          // Start-up Wizard
constexpr uint32_t Back = 102103;           // Back
constexpr uint32_t Next = 102104;           // Next
constexpr uint32_t Skip = 102105;           // Skip
constexpr uint32_t Finish = 102106;         // Finish
constexpr uint32_t DoNotShowAgain = 102107; // Do not show again
} // namespace Wizard
namespace LiveView {
constexpr uint32_t SplitLayout = 103508;    // %1 Split
constexpr uint32_t ChannelName = 103509;    // Channel %1
constexpr uint32_t SnapshotSaved = 103510;  // Snapshot saved
constexpr uint32_t MenuSearch = 103511;     // Search
constexpr uint32_t MenuBackup = 103512;     // Backup
constexpr uint32_t MenuSettings = 103513;   // Settings
constexpr uint32_t MenuLock = 103514;       // Lock Screen
constexpr uint32_t MenuShutdown = 103515;   // Shut Down
constexpr uint32_t SecondsUnit = 103516;    // s
constexpr uint32_t MinutesUnit = 103517;    // min
constexpr uint32_t SequenceOff = 103518;    // Sequence Off
constexpr uint32_t Sequence = 103519;       // Sequence
constexpr uint32_t PtzTitle = 103520;       // PTZ
constexpr uint32_t PtzZoom = 103521;        // Zoom
constexpr uint32_t PtzFocus = 103522;       // Focus
constexpr uint32_t PtzIris = 103523;        // Iris
constexpr uint32_t PtzSpeed = 103524;       // Speed
constexpr uint32_t PtzPreset = 103525;      // Preset
constexpr uint32_t PtzCall = 103526;        // Call
constexpr uint32_t PtzSet = 103527;         // Set
constexpr uint32_t ColourTitle = 103528;    // Image colour
constexpr uint32_t TalkBackBusy = 103529;   // Talk-back is in use by another user
constexpr uint32_t TalkBackFailed = 103530; // Talk-back could not be started
constexpr uint32_t ZoomHint = 103531;       // Digital zoom: wheel to zoom, drag to move, Esc to leave
} // namespace LiveView
namespace Playback {
constexpr uint32_t Search = 104001;          // Search
constexpr uint32_t Exporting = 104002;       // Exporting the clip: %1%
constexpr uint32_t Exported = 104003;        // The clip was exported.
constexpr uint32_t NoUsbDevice = 104004;     // No USB device found.
constexpr uint32_t UsbFull = 104005;         // Not enough free space on the USB device.
constexpr uint32_t ExportCancelled = 104006; // The export was cancelled.
constexpr uint32_t CancelExport = 104007;    // Cancel
constexpr uint32_t HoursSpan = 104008;       // %1 h
constexpr uint32_t MinutesSpan = 104009;     // %1 min
constexpr uint32_t Continuous = 104010;      // Continuous
constexpr uint32_t Motion = 104011;          // Motion detection
constexpr uint32_t Alarm = 104012;           // Alarm
constexpr uint32_t Analytics = 104013;       // Analytics
constexpr uint32_t TagSearch = 104014;       // Tag search
constexpr uint32_t Keyword = 104015;         // Keyword
constexpr uint32_t From = 104016;            // From
constexpr uint32_t To = 104017;              // To
constexpr uint32_t AddTag = 104018;          // Add tag
constexpr uint32_t NoTags = 104019;          // No tags found.
constexpr uint32_t DefaultTagName = 104020;  // Tag
} // namespace Playback
namespace Settings {
constexpr uint32_t Sunday = 105001;           // Sun
constexpr uint32_t Monday = 105002;           // Mon
constexpr uint32_t Tuesday = 105003;          // Tue
constexpr uint32_t Wednesday = 105004;        // Wed
constexpr uint32_t Thursday = 105005;         // Thu
constexpr uint32_t Friday = 105006;           // Fri
constexpr uint32_t Saturday = 105007;         // Sat
constexpr uint32_t Title = 105010;            // Settings
constexpr uint32_t Apply = 105011;            // Apply
constexpr uint32_t Save = 105012;             // Save
constexpr uint32_t Cancel = 105013;           // Cancel
constexpr uint32_t Default = 105014;          // Default
constexpr uint32_t UnsavedQuestion = 105015;  // The settings have changed. Save the changes?
constexpr uint32_t Camera = 105016;           // Camera
constexpr uint32_t Record = 105017;           // Recording
constexpr uint32_t Alarm = 105018;            // Alarm
constexpr uint32_t Network = 105019;          // Network
constexpr uint32_t Storage = 105020;          // Storage
constexpr uint32_t System = 105021;           // System
constexpr uint32_t Schedule = 105022;         // Schedule
constexpr uint32_t General = 105023;          // General
constexpr uint32_t Channel = 105024;          // Channel
constexpr uint32_t TypeNormal = 105025;       // Normal
constexpr uint32_t TypeMotion = 105026;       // Motion detection
constexpr uint32_t TypeAlarm = 105027;        // Alarm
constexpr uint32_t TypePir = 105028;          // PIR
constexpr uint32_t Copy = 105029;             // Copy
constexpr uint32_t PreRecord = 105030;        // Pre-recording (s)
constexpr uint32_t PostRecord = 105031;       // Post-recording (s)
constexpr uint32_t Language = 105032;         // Language
constexpr uint32_t DateFormat = 105033;       // Date format
constexpr uint32_t Hour12 = 105034;           // 12-hour time
constexpr uint32_t MenuTimeout = 105035;      // Menu time-out (min)
constexpr uint32_t Audio = 105036;            // Audio
constexpr uint32_t AlarmInput = 105037;       // Alarm input
constexpr uint32_t Enable = 105038;           // Enable
constexpr uint32_t NormallyClosed = 105039;   // Normally closed
constexpr uint32_t Buzzer = 105040;           // Buzzer
constexpr uint32_t PopUp = 105041;            // Pop-up
constexpr uint32_t Email = 105042;            // E-mail
constexpr uint32_t RecordChannels = 105043;   // Recording channels
constexpr uint32_t AlarmOutput = 105044;      // Alarm output
constexpr uint32_t PtzPreset = 105045;        // PTZ preset
constexpr uint32_t HoldTime = 105046;         // Hold time (s)
constexpr uint32_t Dhcp = 105047;             // DHCP
constexpr uint32_t IpAddress = 105048;        // IP address
constexpr uint32_t SubnetMask = 105049;       // Subnet mask
constexpr uint32_t Gateway = 105050;          // Gateway
constexpr uint32_t Dns1 = 105051;             // Preferred DNS
constexpr uint32_t Dns2 = 105052;             // Alternate DNS
constexpr uint32_t HttpPort = 105053;         // HTTP port
constexpr uint32_t ServerPort = 105054;       // Server port
constexpr uint32_t InvalidValue = 105055;     // Some values are not valid and were not saved.
constexpr uint32_t RemoteAccess = 105056;     // Remote access
constexpr uint32_t DeviceId = 105057;         // Device ID
constexpr uint32_t Online = 105058;           // Online
constexpr uint32_t Offline = 105059;          // Offline
constexpr uint32_t DeviceInfo = 105060;       // Device information
constexpr uint32_t Model = 105061;            // Model
constexpr uint32_t SoftwareVersion = 105062;  // Software version
constexpr uint32_t HardwareVersion = 105063;  // Hardware version
constexpr uint32_t SerialNumber = 105064;     // Serial number
constexpr uint32_t Disk = 105065;             // Disk
constexpr uint32_t Overwrite = 105066;        // Overwrite when full
constexpr uint32_t Format = 105067;           // Format
constexpr uint32_t FormatQuestion = 105068;   // Formatting erases every recording on the disks chosen. Format now?
constexpr uint32_t StateNormal = 105069;      // Normal
constexpr uint32_t StateUnformatted = 105070; // Unformatted
constexpr uint32_t StateError = 105071;       // Error
constexpr uint32_t StateFormatting = 105072;  // Formatting
constexpr uint32_t HealthGood = 105073;       // Good
constexpr uint32_t HealthWarning = 105074;    // Warning
constexpr uint32_t HealthFailing = 105075;    // Failing
constexpr uint32_t CapacityFree = 105076;     // %1 GB, %2 GB free
constexpr uint32_t NoDisk = 105077;           // No disk
constexpr uint32_t ChannelName = 105078;      // Channel name
constexpr uint32_t ShowName = 105079;         // Show name
constexpr uint32_t NameX = 105080;            // Name position X (%)
constexpr uint32_t NameY = 105081;            // Name position Y (%)
constexpr uint32_t ShowTime = 105082;         // Show time
constexpr uint32_t TimeX = 105083;            // Time position X (%)
constexpr uint32_t TimeY = 105084;            // Time position Y (%)
constexpr uint32_t Image = 105085;            // Image
constexpr uint32_t Brightness = 105086;       // Brightness
constexpr uint32_t Contrast = 105087;         // Contrast
constexpr uint32_t Saturation = 105088;       // Saturation
constexpr uint32_t Hue = 105089;              // Hue
constexpr uint32_t Sensitivity = 105090;      // Sensitivity
constexpr uint32_t SmtpServer = 105091;       // SMTP server
constexpr uint32_t Port = 105092;             // Port
constexpr uint32_t Ssl = 105093;              // SSL/TLS
constexpr uint32_t Sender = 105094;           // Sender
constexpr uint32_t Receiver = 105095;         // Receiver
constexpr uint32_t UserName = 105096;         // User name
constexpr uint32_t Password = 105097;         // Password
constexpr uint32_t Test = 105098;             // Send test e-mail
constexpr uint32_t TestSent = 105099;         // The test e-mail was sent.
constexpr uint32_t TestFailed = 105100;       // The test e-mail could not be sent.
constexpr uint32_t EmailSchedule = 105101;    // E-mail schedule
constexpr uint32_t TypeException = 105102;    // Exception
constexpr uint32_t TypeIntelligent = 105103;  // Intelligent
constexpr uint32_t Ftp = 105104;              // FTP
constexpr uint32_t FtpSchedule = 105105;      // FTP schedule
constexpr uint32_t Server = 105106;           // Server
constexpr uint32_t RemoteFolder = 105107;     // Remote folder
constexpr uint32_t DiskFull = 105108;         // Disk full
constexpr uint32_t DiskError = 105109;        // Disk error
constexpr uint32_t VideoLoss = 105110;        // Video loss
constexpr uint32_t DontSave = 105111;         // Don't save
constexpr uint32_t LanguageName0 = 105200;    // 简体中文
constexpr uint32_t LanguageName1 = 105201;    // 繁體中文
constexpr uint32_t LanguageName2 = 105202;    // Čeština
constexpr uint32_t LanguageName3 = 105203;    // Dansk
constexpr uint32_t LanguageName4 = 105204;    // English
constexpr uint32_t LanguageName5 = 105205;    // Suomi
constexpr uint32_t LanguageName6 = 105206;    // Français
constexpr uint32_t LanguageName7 = 105207;    // Deutsch
constexpr uint32_t LanguageName8 = 105208;    // Ελληνικά
constexpr uint32_t LanguageName9 = 105209;    // עברית
constexpr uint32_t LanguageName10 = 105210;   // Magyar
constexpr uint32_t LanguageName11 = 105211;   // Italiano
constexpr uint32_t LanguageName12 = 105212;   // 日本語
constexpr uint32_t LanguageName13 = 105213;   // Polski
constexpr uint32_t LanguageName14 = 105214;   // Português
constexpr uint32_t LanguageName15 = 105215;   // Русский
constexpr uint32_t LanguageName16 = 105216;   // Español
constexpr uint32_t LanguageName17 = 105217;   // ไทย
constexpr uint32_t LanguageName18 = 105218;   // Slovenščina
constexpr uint32_t LanguageName19 = 105219;   // Română
constexpr uint32_t LanguageName20 = 105220;   // Български
constexpr uint32_t LanguageName21 = 105221;   // العربية
constexpr uint32_t LanguageName22 = 105222;   // हिन्दी
constexpr uint32_t LanguageName23 = 105223;   // Tiếng Việt
constexpr uint32_t LanguageName24 = 105224;   // Nederlands
constexpr uint32_t LanguageName25 = 105225;   // Türkçe
constexpr uint32_t LanguageName26 = 105226;   // فارسی
constexpr uint32_t LanguageName27 = 105227;   // Svenska
constexpr uint32_t LanguageName28 = 105228;   // 한국어
constexpr uint32_t LanguageName29 = 105229;   // Bahasa Indonesia
constexpr uint32_t LanguageName30 = 105230;   // Português (Brasil)
constexpr uint32_t LanguageName31 = 105231;   // Vlaams
constexpr uint32_t LanguageName32 = 105232;   // Українська
constexpr uint32_t LanguageName33 = 105233;   // Slovenčina
constexpr uint32_t Encoding = 105300;         // Encoding
constexpr uint32_t Stream = 105301;           // Stream
constexpr uint32_t MainStream = 105302;       // Main stream
constexpr uint32_t SubStream = 105303;        // Sub-stream
constexpr uint32_t Resolution = 105304;       // Resolution
constexpr uint32_t FrameRate = 105305;        // Frame rate (fps)
constexpr uint32_t BitrateMode = 105306;      // Bit rate mode
constexpr uint32_t BitrateConstant = 105307;  // Constant
constexpr uint32_t BitrateVariable = 105308;  // Variable
constexpr uint32_t Bitrate = 105309;          // Bit rate (kbps)
constexpr uint32_t Quality = 105310;          // Quality
constexpr uint32_t IFrameInterval = 105311;   // I-frame interval
constexpr uint32_t Codec = 105312;            // Video codec
constexpr uint32_t DateTime = 105313;         // Date and time
constexpr uint32_t Date = 105314;             // Date
constexpr uint32_t Time = 105315;             // Time
constexpr uint32_t TimeZone = 105316;         // Time zone
constexpr uint32_t NtpSync = 105317;          // Use a time server
constexpr uint32_t SyncInterval = 105318;     // Synchronise every (min)
constexpr uint32_t SyncNow = 105319;          // Synchronise now
constexpr uint32_t SyncDone = 105320;         // The clock was synchronised.
constexpr uint32_t SyncFailed = 105321;       // The time server did not answer.
constexpr uint32_t DaylightSaving = 105322;   // Daylight saving time
constexpr uint32_t DstMode = 105323;          // Rule
constexpr uint32_t DstByWeek = 105324;        // By week
constexpr uint32_t DstByDate = 105325;        // By date
constexpr uint32_t DstStart = 105326;         // Starts
constexpr uint32_t DstEnd = 105327;           // Ends
constexpr uint32_t DstOffset = 105328;        // Clock goes forward by (min)
constexpr uint32_t Output = 105329;           // Output
constexpr uint32_t OutputDevice = 105330;     // Video output
constexpr uint32_t Transparency = 105331;     // Menu transparency
constexpr uint32_t SequenceDwell = 105332;    // Sequence dwell (s)
constexpr uint32_t SpotOutput = 105333;       // Spot output
constexpr uint32_t SpotStandard = 105334;     // Spot output format
constexpr uint32_t SpotDwell = 105335;        // Spot dwell (s)
constexpr uint32_t SpotChannels = 105336;     // Spot channels
constexpr uint32_t Ddns = 105337;             // DDNS
constexpr uint32_t Provider = 105338;         // Service
constexpr uint32_t ProviderBuiltIn = 105339;  // Built-in service
constexpr uint32_t ProviderCustom = 105340;   // Custom server
constexpr uint32_t HostName = 105341;         // Host name
constexpr uint32_t Status = 105342;           // Status
constexpr uint32_t DdnsOff = 105343;          // Not enabled
constexpr uint32_t DdnsUpdating = 105344;     // Updating
constexpr uint32_t DdnsRegistered = 105345;   // Registered
constexpr uint32_t DdnsFailed = 105346;       // Registration failed
constexpr uint32_t PrivacyMask = 105347;      // Privacy masks
constexpr uint32_t ClearMasks = 105348;       // Clear all
constexpr uint32_t NetworkCameras = 105349;   // Network cameras
constexpr uint32_t SearchCameras = 105350;    // Search
constexpr uint32_t AddCamera = 105351;        // Add
constexpr uint32_t NoCamerasFound = 105352;   // No cameras found.
constexpr uint32_t CameraAdded = 105353;      // Added to channel %1.
constexpr uint32_t NoFreeChannel = 105354;    // Every channel already has a camera.
} // namespace Settings
namespace User {
constexpr uint32_t LoginTitle = 110000;       // Log in
constexpr uint32_t UserName = 110001;         // User
constexpr uint32_t Password = 110002;         // Password
constexpr uint32_t WrongPassword = 110003;    // Wrong password. %1 tries left before this user is locked.
constexpr uint32_t Locked = 110004;           // Too many wrong passwords. This user is locked for %1 seconds.
constexpr uint32_t PasswordTooLong = 110005;  // The password is too long.
constexpr uint32_t LoginFailed = 110006;      // Login failed. Try again.
constexpr uint32_t UnlockTitle = 110007;      // Unlock the screen
constexpr uint32_t Pattern = 110008;          // Pattern
constexpr uint32_t LogIn = 110009;            // Log in
constexpr uint32_t LoggedInAs = 110010;       // Logged in as %1.
constexpr uint32_t LogOut = 110011;           // Log out
constexpr uint32_t SwitchUser = 110012;       // Switch user
constexpr uint32_t ScreenLocked = 110013;     // The screen is locked. Press Esc or click to unlock.
constexpr uint32_t Users = 110014;            // Users
constexpr uint32_t AddUser = 110015;          // Add user
constexpr uint32_t DeleteUser = 110016;       // Delete user
constexpr uint32_t ChangePassword = 110017;   // Change password
constexpr uint32_t SetPattern = 110018;       // Set pattern
constexpr uint32_t ClearPattern = 110019;     // Clear pattern
constexpr uint32_t OldPassword = 110020;      // Old password
constexpr uint32_t NewPassword = 110021;      // New password
constexpr uint32_t ConfirmPassword = 110022;  // Confirm password
constexpr uint32_t PasswordsDiffer = 110023;  // The new passwords do not match.
constexpr uint32_t UserExists = 110024;       // A user with this name already exists.
constexpr uint32_t UserListFull = 110025;     // No more users can be added.
constexpr uint32_t CannotDelete = 110026;     // The administrator cannot be deleted.
constexpr uint32_t DeleteQuestion = 110027;   // Delete user %1?
constexpr uint32_t Administrator = 110028;    // Administrator
constexpr uint32_t LiveChannels = 110029;     // Live view channels
constexpr uint32_t PlaybackChannels = 110030; // Playback channels
constexpr uint32_t SaveRights = 110031;       // Save rights
constexpr uint32_t RightLiveView = 110032;    // Live view
constexpr uint32_t RightPlayback = 110033;    // Playback
constexpr uint32_t RightPtz = 110034;         // PTZ control
constexpr uint32_t TooLong = 110035;          // The name or password is too long.
constexpr uint32_t NameMissing = 110036;      // Enter a user name.
constexpr uint32_t Changed = 110037;          // The change was saved.
constexpr uint32_t WrongOldPassword = 110038; // The password is wrong.
constexpr uint32_t AdminPassword = 110039;    // Administrator password
} // namespace User
namespace Analytics {
constexpr uint32_t Title = 111000;            // Analytics
constexpr uint32_t NothingOffered = 111001;   // This recorder offers no analytics
constexpr uint32_t CrowdCounting = 111002;    // Crowd counting
constexpr uint32_t HeatMap = 111003;          // Heat map
constexpr uint32_t PeopleStatistics = 111004; // People statistics
constexpr uint32_t In = 111005;               // In
constexpr uint32_t Out = 111006;              // Out
constexpr uint32_t Limit = 111007;            // Limit
constexpr uint32_t CountLine = 111008;        // Line
constexpr uint32_t CountArea = 111009;        // Area
constexpr uint32_t ByHour = 111010;           // By hour
constexpr uint32_t ByDay = 111011;            // By day
constexpr uint32_t ByWeek = 111012;           // By week
constexpr uint32_t ByMonth = 111013;          // By month
constexpr uint32_t Bars = 111014;             // Bars
constexpr uint32_t Lines = 111015;            // Lines
constexpr uint32_t Day = 111016;              // Day
constexpr uint32_t Week = 111017;             // Week
constexpr uint32_t NoData = 111018;           // No data
constexpr uint32_t Clear = 111019;            // Clear
constexpr uint32_t ChannelNumber = 111020;    // Channel %1
constexpr uint32_t Save = 111021;             // Save
constexpr uint32_t CrowdAlarm = 111022;       // Channel %1: crowd limit passed
constexpr uint32_t FaceLibrary = 111500;      // Face library
constexpr uint32_t FaceSearch = 111501;       // Face search
constexpr uint32_t Attendance = 111502;       // Attendance
constexpr uint32_t Group = 111503;            // Group
constexpr uint32_t AddGroup = 111504;         // Add group
constexpr uint32_t Rename = 111505;           // Rename
constexpr uint32_t Delete = 111506;           // Delete
constexpr uint32_t AddFromLive = 111507;      // Add from live view
constexpr uint32_t AddFromUsb = 111508;       // Add from USB
constexpr uint32_t Name = 111509;             // Name
constexpr uint32_t Note = 111510;             // Note
constexpr uint32_t Import = 111511;           // Import
constexpr uint32_t Export = 111512;           // Export
constexpr uint32_t From = 111513;             // From
constexpr uint32_t To = 111514;               // To
constexpr uint32_t Similarity = 111515;       // Similarity
constexpr uint32_t Results = 111516;          // %1 results
constexpr uint32_t CheckIn = 111517;          // Check-in
constexpr uint32_t CheckOut = 111518;         // Check-out
constexpr uint32_t Date = 111519;             // Date
constexpr uint32_t ExportCsv = 111520;        // Export CSV to USB
constexpr uint32_t Recognised = 111521;       // %1 recognised on channel %2
constexpr uint32_t NoFace = 111522;           // No face found in the picture.
constexpr uint32_t FileError = 111523;        // The file on the USB device could not be read or written.
constexpr uint32_t LibraryFull = 111524;      // The face library is full.
constexpr uint32_t Refused = 111525;          // The recorder refused the change.
constexpr uint32_t Done = 111526;             // Done.
constexpr uint32_t AllChannels = 111528;      // All channels
constexpr uint32_t LiveFace = 111529;         // Live view, channel %1
constexpr uint32_t DayStart = 111530;         // Day starts at
} // namespace Analytics
namespace Maintenance {
constexpr uint32_t PowerQuestion = 112001;    // Choose what to do.
constexpr uint32_t ShutDown = 112002;         // Shut down
constexpr uint32_t Restart = 112003;          // Restart
constexpr uint32_t LogOut = 112004;           // Log out
constexpr uint32_t ConfirmShutDown = 112005;  // Shut down the device now? Recording stops until it is switched on again.
constexpr uint32_t ConfirmRestart = 112006;   // Restart the device now? Recording stops while it restarts.
constexpr uint32_t ConfirmLogOut = 112007;    // Log out the current user?
constexpr uint32_t Channels = 112008;         // Channels
constexpr uint32_t Date = 112009;             // Date
constexpr uint32_t From = 112010;             // From
constexpr uint32_t To = 112011;               // To
constexpr uint32_t RecordTypes = 112012;      // Record types
constexpr uint32_t Start = 112013;            // Start
constexpr uint32_t End = 112014;              // End
constexpr uint32_t Size = 112015;             // Size
constexpr uint32_t SizeMiB = 112016;          // %1 MB
constexpr uint32_t Export = 112017;           // Export
constexpr uint32_t UsbFree = 112018;          // USB device: %1 MB free of %2 MB
constexpr uint32_t NothingFound = 112019;     // No recordings found.
constexpr uint32_t ExportingFile = 112020;    // Exporting file %1 of %2
constexpr uint32_t ExportDone = 112021;       // %1 files were copied to the USB device.
constexpr uint32_t TooLarge = 112022;         // The files chosen (%1 MB) do not fit on the USB device (%2 MB free).
constexpr uint32_t UsbRemoved = 112023;       // The USB device was removed. The backup stopped.
constexpr uint32_t LogTitle = 112024;         // System Log
constexpr uint32_t Time = 112025;             // Time
constexpr uint32_t Type = 112026;             // Type
constexpr uint32_t Description = 112027;      // Description
constexpr uint32_t PageOf = 112028;           // Page %1 of %2, %3 entries
constexpr uint32_t PreviousPage = 112029;     // Previous page
constexpr uint32_t NextPage = 112030;         // Next page
constexpr uint32_t TypeConfig = 112031;       // Configuration
constexpr uint32_t TypeUser = 112032;         // Users
constexpr uint32_t AnswerRefused = 112033;    // The device's answer could not be read.
constexpr uint32_t Upgrade = 112034;          // Upgrade
constexpr uint32_t Refresh = 112035;          // Refresh
constexpr uint32_t RunningVersion = 112036;   // Running version: %1
constexpr uint32_t FileName = 112037;         // File
constexpr uint32_t Version = 112038;          // Version
constexpr uint32_t Status = 112039;           // Status
constexpr uint32_t FileReady = 112040;        // Ready
constexpr uint32_t FileOtherModel = 112041;   // For another model
constexpr uint32_t FileDamaged = 112042;      // Damaged
constexpr uint32_t NoUpgradeFiles = 112043;   // No upgrade files found on the USB device.
constexpr uint32_t ConfirmUpgrade = 112044;   // Upgrade to version %1? The device restarts when it is done. Do not remove the USB device or switch off meanwhile.
constexpr uint32_t Upgrading = 112045;        // Upgrading. Do not remove the USB device or switch off.
constexpr uint32_t UpgradeDone = 112046;      // The upgrade is complete. The device restarts now.
constexpr uint32_t FailedOtherModel = 112047; // The upgrade failed: the file is for another model.
constexpr uint32_t FailedDamaged = 112048;    // The upgrade failed: the file is damaged or incomplete.
constexpr uint32_t FailedNoDevice = 112049;   // The upgrade failed: the USB device was removed.
constexpr uint32_t Title = 112050;            // Maintenance
constexpr uint32_t AutoRestart = 112051;      // Restart automatically
constexpr uint32_t Day = 112052;              // Day
constexpr uint32_t EveryDay = 112053;         // Every day
constexpr uint32_t LoadDefaults = 112054;     // Load defaults
constexpr uint32_t DefaultsQuestion = 112055; // Load the factory defaults? Settings not kept are lost.
constexpr uint32_t DefaultsDone = 112056;     // Factory defaults loaded. Kept: %1.
constexpr uint32_t ExportConfig = 112057;     // Export configuration
constexpr uint32_t ImportConfig = 112058;     // Import configuration
constexpr uint32_t ImportQuestion = 112059;   // Replace every setting with the configuration on the USB device?
constexpr uint32_t ConfigExported = 112060;   // The configuration was saved to the USB device.
constexpr uint32_t ConfigImported = 112061;   // The configuration was loaded from the USB device.
constexpr uint32_t NoConfigFile = 112062;     // No configuration file found on the USB device.
constexpr uint32_t ConfigDamaged = 112063;    // The configuration file is damaged or for another model.
constexpr uint32_t LogExported = 112064;      // The log was saved to the USB device as %1.
constexpr uint32_t LogTooLarge = 112065;      // The log is too large for one file. Narrow the search.
constexpr uint32_t LogExportFailed = 112066;  // The log could not be saved to the USB device.
} // namespace Maintenance

// Every ID above, ascending: what each shipped language file must hold, and no more.
constexpr uint32_t kAll[] = {
    Common::Ok,
    Common::Close,
    Common::Keep,
    Common::Revert,
    Common::Information,
    Common::Cancel,
    Common::Yes,
    Common::No,
    Common::Question,
    Common::Warning,
    Common::SundayShort,
    Common::MondayShort,
    Common::TuesdayShort,
    Common::WednesdayShort,
    Common::ThursdayShort,
    Common::FridayShort,
    Common::SaturdayShort,
    SystemNotice::ShuttingDown,
    SystemNotice::DeviceBusy,
    Resolution::Title,
    Resolution::NotKept,
    Resolution::KeepQuestion,
    Wizard::Title,
    Wizard::Back,
    Wizard::Next,
    Wizard::Skip,
    Wizard::Finish,
    Wizard::DoNotShowAgain,
    LiveView::SplitLayout,
    LiveView::ChannelName,
    LiveView::SnapshotSaved,
    LiveView::MenuSearch,
    LiveView::MenuBackup,
    LiveView::MenuSettings,
    LiveView::MenuLock,
    LiveView::MenuShutdown,
    LiveView::SecondsUnit,
    LiveView::MinutesUnit,
    LiveView::SequenceOff,
    LiveView::Sequence,
    LiveView::PtzTitle,
    LiveView::PtzZoom,
    LiveView::PtzFocus,
    LiveView::PtzIris,
    LiveView::PtzSpeed,
    LiveView::PtzPreset,
    LiveView::PtzCall,
    LiveView::PtzSet,
    LiveView::ColourTitle,
    LiveView::TalkBackBusy,
    LiveView::TalkBackFailed,
    LiveView::ZoomHint,
    Playback::Search,
    Playback::Exporting,
    Playback::Exported,
    Playback::NoUsbDevice,
    Playback::UsbFull,
    Playback::ExportCancelled,
    Playback::CancelExport,
    Playback::HoursSpan,
    Playback::MinutesSpan,
    Playback::Continuous,
    Playback::Motion,
    Playback::Alarm,
    Playback::Analytics,
    Playback::TagSearch,
    Playback::Keyword,
    Playback::From,
    Playback::To,
    Playback::AddTag,
    Playback::NoTags,
    Playback::DefaultTagName,
    Settings::Sunday,
    Settings::Monday,
    Settings::Tuesday,
    Settings::Wednesday,
    Settings::Thursday,
    Settings::Friday,
    Settings::Saturday,
    Settings::Title,
    Settings::Apply,
    Settings::Save,
    Settings::Cancel,
    Settings::Default,
    Settings::UnsavedQuestion,
    Settings::Camera,
    Settings::Record,
    Settings::Alarm,
    Settings::Network,
    Settings::Storage,
    Settings::System,
    Settings::Schedule,
    Settings::General,
    Settings::Channel,
    Settings::TypeNormal,
    Settings::TypeMotion,
    Settings::TypeAlarm,
    Settings::TypePir,
    Settings::Copy,
    Settings::PreRecord,
    Settings::PostRecord,
    Settings::Language,
    Settings::DateFormat,
    Settings::Hour12,
    Settings::MenuTimeout,
    Settings::Audio,
    Settings::AlarmInput,
    Settings::Enable,
    Settings::NormallyClosed,
    Settings::Buzzer,
    Settings::PopUp,
    Settings::Email,
    Settings::RecordChannels,
    Settings::AlarmOutput,
    Settings::PtzPreset,
    Settings::HoldTime,
    Settings::Dhcp,
    Settings::IpAddress,
    Settings::SubnetMask,
    Settings::Gateway,
    Settings::Dns1,
    Settings::Dns2,
    Settings::HttpPort,
    Settings::ServerPort,
    Settings::InvalidValue,
    Settings::RemoteAccess,
    Settings::DeviceId,
    Settings::Online,
    Settings::Offline,
    Settings::DeviceInfo,
    Settings::Model,
    Settings::SoftwareVersion,
    Settings::HardwareVersion,
    Settings::SerialNumber,
    Settings::Disk,
    Settings::Overwrite,
    Settings::Format,
    Settings::FormatQuestion,
    Settings::StateNormal,
    Settings::StateUnformatted,
    Settings::StateError,
    Settings::StateFormatting,
    Settings::HealthGood,
    Settings::HealthWarning,
    Settings::HealthFailing,
    Settings::CapacityFree,
    Settings::NoDisk,
    Settings::ChannelName,
    Settings::ShowName,
    Settings::NameX,
    Settings::NameY,
    Settings::ShowTime,
    Settings::TimeX,
    Settings::TimeY,
    Settings::Image,
    Settings::Brightness,
    Settings::Contrast,
    Settings::Saturation,
    Settings::Hue,
    Settings::Sensitivity,
    Settings::SmtpServer,
    Settings::Port,
    Settings::Ssl,
    Settings::Sender,
    Settings::Receiver,
    Settings::UserName,
    Settings::Password,
    Settings::Test,
    Settings::TestSent,
    Settings::TestFailed,
    Settings::EmailSchedule,
    Settings::TypeException,
    Settings::TypeIntelligent,
    Settings::Ftp,
    Settings::FtpSchedule,
    Settings::Server,
    Settings::RemoteFolder,
    Settings::DiskFull,
    Settings::DiskError,
    Settings::VideoLoss,
    Settings::DontSave,
    Settings::LanguageName0,
    Settings::LanguageName1,
    Settings::LanguageName2,
    Settings::LanguageName3,
    Settings::LanguageName4,
    Settings::LanguageName5,
    Settings::LanguageName6,
    Settings::LanguageName7,
    Settings::LanguageName8,
    Settings::LanguageName9,
    Settings::LanguageName10,
    Settings::LanguageName11,
    Settings::LanguageName12,
    Settings::LanguageName13,
    Settings::LanguageName14,
    Settings::LanguageName15,
    Settings::LanguageName16,
    Settings::LanguageName17,
    Settings::LanguageName18,
    Settings::LanguageName19,
    Settings::LanguageName20,
    Settings::LanguageName21,
    Settings::LanguageName22,
    Settings::LanguageName23,
    Settings::LanguageName24,
    Settings::LanguageName25,
    Settings::LanguageName26,
    Settings::LanguageName27,
    Settings::LanguageName28,
    Settings::LanguageName29,
    Settings::LanguageName30,
    Settings::LanguageName31,
    Settings::LanguageName32,
    Settings::LanguageName33,
    Settings::Encoding,
    Settings::Stream,
    Settings::MainStream,
    Settings::SubStream,
    Settings::Resolution,
    Settings::FrameRate,
    Settings::BitrateMode,
    Settings::BitrateConstant,
    Settings::BitrateVariable,
    Settings::Bitrate,
    Settings::Quality,
    Settings::IFrameInterval,
    Settings::Codec,
    Settings::DateTime,
    Settings::Date,
    Settings::Time,
    Settings::TimeZone,
    Settings::NtpSync,
    Settings::SyncInterval,
    Settings::SyncNow,
    Settings::SyncDone,
    Settings::SyncFailed,
    Settings::DaylightSaving,
    Settings::DstMode,
    Settings::DstByWeek,
    Settings::DstByDate,
    Settings::DstStart,
    Settings::DstEnd,
    Settings::DstOffset,
    Settings::Output,
    Settings::OutputDevice,
    Settings::Transparency,
    Settings::SequenceDwell,
    Settings::SpotOutput,
    Settings::SpotStandard,
    Settings::SpotDwell,
    Settings::SpotChannels,
    Settings::Ddns,
    Settings::Provider,
    Settings::ProviderBuiltIn,
    Settings::ProviderCustom,
    Settings::HostName,
    Settings::Status,
    Settings::DdnsOff,
    Settings::DdnsUpdating,
    Settings::DdnsRegistered,
    Settings::DdnsFailed,
    Settings::PrivacyMask,
    Settings::ClearMasks,
    Settings::NetworkCameras,
    Settings::SearchCameras,
    Settings::AddCamera,
    Settings::NoCamerasFound,
    Settings::CameraAdded,
    Settings::NoFreeChannel,
    User::LoginTitle,
    User::UserName,
    User::Password,
    User::WrongPassword,
    User::Locked,
    User::PasswordTooLong,
    User::LoginFailed,
    User::UnlockTitle,
    User::Pattern,
    User::LogIn,
    User::LoggedInAs,
    User::LogOut,
    User::SwitchUser,
    User::ScreenLocked,
    User::Users,
    User::AddUser,
    User::DeleteUser,
    User::ChangePassword,
    User::SetPattern,
    User::ClearPattern,
    User::OldPassword,
    User::NewPassword,
    User::ConfirmPassword,
    User::PasswordsDiffer,
    User::UserExists,
    User::UserListFull,
    User::CannotDelete,
    User::DeleteQuestion,
    User::Administrator,
    User::LiveChannels,
    User::PlaybackChannels,
    User::SaveRights,
    User::RightLiveView,
    User::RightPlayback,
    User::RightPtz,
    User::TooLong,
    User::NameMissing,
    User::Changed,
    User::WrongOldPassword,
    User::AdminPassword,
    Analytics::Title,
    Analytics::NothingOffered,
    Analytics::CrowdCounting,
    Analytics::HeatMap,
    Analytics::PeopleStatistics,
    Analytics::In,
    Analytics::Out,
    Analytics::Limit,
    Analytics::CountLine,
    Analytics::CountArea,
    Analytics::ByHour,
    Analytics::ByDay,
    Analytics::ByWeek,
    Analytics::ByMonth,
    Analytics::Bars,
    Analytics::Lines,
    Analytics::Day,
    Analytics::Week,
    Analytics::NoData,
    Analytics::Clear,
    Analytics::ChannelNumber,
    Analytics::Save,
    Analytics::CrowdAlarm,
    Analytics::FaceLibrary,
    Analytics::FaceSearch,
    Analytics::Attendance,
    Analytics::Group,
    Analytics::AddGroup,
    Analytics::Rename,
    Analytics::Delete,
    Analytics::AddFromLive,
    Analytics::AddFromUsb,
    Analytics::Name,
    Analytics::Note,
    Analytics::Import,
    Analytics::Export,
    Analytics::From,
    Analytics::To,
    Analytics::Similarity,
    Analytics::Results,
    Analytics::CheckIn,
    Analytics::CheckOut,
    Analytics::Date,
    Analytics::ExportCsv,
    Analytics::Recognised,
    Analytics::NoFace,
    Analytics::FileError,
    Analytics::LibraryFull,
    Analytics::Refused,
    Analytics::Done,
    Analytics::AllChannels,
    Analytics::LiveFace,
    Analytics::DayStart,
    Maintenance::PowerQuestion,
    Maintenance::ShutDown,
    Maintenance::Restart,
    Maintenance::LogOut,
    Maintenance::ConfirmShutDown,
    Maintenance::ConfirmRestart,
    Maintenance::ConfirmLogOut,
    Maintenance::Channels,
    Maintenance::Date,
    Maintenance::From,
    Maintenance::To,
    Maintenance::RecordTypes,
    Maintenance::Start,
    Maintenance::End,
    Maintenance::Size,
    Maintenance::SizeMiB,
    Maintenance::Export,
    Maintenance::UsbFree,
    Maintenance::NothingFound,
    Maintenance::ExportingFile,
    Maintenance::ExportDone,
    Maintenance::TooLarge,
    Maintenance::UsbRemoved,
    Maintenance::LogTitle,
    Maintenance::Time,
    Maintenance::Type,
    Maintenance::Description,
    Maintenance::PageOf,
    Maintenance::PreviousPage,
    Maintenance::NextPage,
    Maintenance::TypeConfig,
    Maintenance::TypeUser,
    Maintenance::AnswerRefused,
    Maintenance::Upgrade,
    Maintenance::Refresh,
    Maintenance::RunningVersion,
    Maintenance::FileName,
    Maintenance::Version,
    Maintenance::Status,
    Maintenance::FileReady,
    Maintenance::FileOtherModel,
    Maintenance::FileDamaged,
    Maintenance::NoUpgradeFiles,
    Maintenance::ConfirmUpgrade,
    Maintenance::Upgrading,
    Maintenance::UpgradeDone,
    Maintenance::FailedOtherModel,
    Maintenance::FailedDamaged,
    Maintenance::FailedNoDevice,
    Maintenance::Title,
    Maintenance::AutoRestart,
    Maintenance::Day,
    Maintenance::EveryDay,
    Maintenance::LoadDefaults,
    Maintenance::DefaultsQuestion,
    Maintenance::DefaultsDone,
    Maintenance::ExportConfig,
    Maintenance::ImportConfig,
    Maintenance::ImportQuestion,
    Maintenance::ConfigExported,
    Maintenance::ConfigImported,
    Maintenance::NoConfigFile,
    Maintenance::ConfigDamaged,
    Maintenance::LogExported,
    Maintenance::LogTooLarge,
    Maintenance::LogExportFailed,
};
} // namespace TextId
// clang-format on
