<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>OvAboutDialog</name>
    <message>
        <source>About Maravel</source>
        <translation>About Maravel</translation>
    </message>
    <message>
        <source>&lt;!DOCTYPE HTML PUBLIC &quot;-//W3C//DTD HTML 4.0//EN&quot; &quot;http://www.w3.org/TR/REC-html40/strict.dtd&quot;&gt;
&lt;html&gt;&lt;head&gt;&lt;meta name=&quot;qrichtext&quot; content=&quot;1&quot; /&gt;&lt;style type=&quot;text/css&quot;&gt;
p, li { white-space: pre-wrap; }
&lt;/style&gt;&lt;/head&gt;&lt;body style=&quot; font-family:&apos;Arial&apos;; font-size:9pt; font-weight:400; font-style:normal;&quot;&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;span style=&quot; font-family:&apos;Microsoft YaHei UI&apos;; font-size:12pt; font-weight:600;&quot;&gt;Maravel&lt;/span&gt; v2.1 (build 20230303)&lt;/p&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;span style=&quot; font-size:10pt; color:#0000ff;&quot;&gt;Maravel Cloud: picks for the crew&lt;/span&gt;&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;Copyright (C) 2026 Tarnpick developers&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;All rights reserved.&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;a href=&quot;https://tarnpick.example.org&quot;&gt;&lt;span style=&quot; text-decoration: underline; color:#1c6aa8;&quot;&gt;https://tarnpick.example.org&lt;/span&gt;&lt;/a&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;!DOCTYPE HTML PUBLIC &quot;-//W3C//DTD HTML 4.0//EN&quot; &quot;http://www.w3.org/TR/REC-html40/strict.dtd&quot;&gt;
&lt;html&gt;&lt;head&gt;&lt;meta name=&quot;qrichtext&quot; content=&quot;1&quot; /&gt;&lt;style type=&quot;text/css&quot;&gt;
p, li { white-space: pre-wrap; }
&lt;/style&gt;&lt;/head&gt;&lt;body style=&quot; font-family:&apos;Arial&apos;; font-size:9pt; font-weight:400; font-style:normal;&quot;&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;span style=&quot; font-family:&apos;Microsoft YaHei UI&apos;; font-size:12pt; font-weight:600;&quot;&gt;Maravel&lt;/span&gt; v2.1 (build 20230303)&lt;/p&gt;
&lt;p style=&quot;-qt-paragraph-type:empty; margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;br /&gt;&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;span style=&quot; font-size:10pt; color:#0000ff;&quot;&gt;Maravel Cloud: picks for the crew&lt;/span&gt;&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;Copyright (C) 2026 Tarnpick developers&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;All rights reserved.&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;a href=&quot;https://tarnpick.example.org&quot;&gt;&lt;span style=&quot; text-decoration: underline; color:#1c6aa8;&quot;&gt;https://tarnpick.example.org&lt;/span&gt;&lt;/a&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>OvConsole</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Warning: </source>
        <translation>Warning: </translation>
    </message>
    <message>
        <source>Critical: </source>
        <translation>Critical: </translation>
    </message>
    <message>
        <source>Fatal: </source>
        <translation>Fatal: </translation>
    </message>
</context>
<context>
    <name>OvLinkWindowDlg</name>
    <message>
        <source>Parallel View</source>
        <translation>Parallel View</translation>
    </message>
    <message>
        <source>Link all</source>
        <translation>Link all</translation>
    </message>
    <message>
        <source>Link the selected views</source>
        <translation>Link the selected views</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Delink the selected views</source>
        <translation>Delink the selected views</translation>
    </message>
    <message>
        <source>Delink all</source>
        <translation>Delink all</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Move down</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Move up</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>SEGY File</source>
        <translation>SEGY File</translation>
    </message>
    <message>
        <source>Different type of data can not be displayed in a parallel view.</source>
        <translation>Different type of data can not be displayed in a parallel view.</translation>
    </message>
</context>
<context>
    <name>OvLoginDlg</name>
    <message>
        <source>name@example.com</source>
        <translation>name@example.com</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>password</source>
        <translation>password</translation>
    </message>
    <message>
        <source>Retrieve</source>
        <translation>Retrieve</translation>
    </message>
    <message>
        <source>&amp;Login</source>
        <translation>&amp;Login</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>The folder for your data cannot be determined or created. Set the environment variable TARNPICK_HOME to a folder that you can write to.</source>
        <translation>The folder for your data cannot be determined or created. Set the environment variable TARNPICK_HOME to a folder that you can write to.</translation>
    </message>
    <message>
        <source>Tarnpick</source>
        <translation>Tarnpick</translation>
    </message>
    <message>
        <source>Login failed!</source>
        <translation>Login failed!</translation>
    </message>
</context>
<context>
    <name>OvMainBillBoard</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>SEGY file</source>
        <translation>SEGY file</translation>
    </message>
    <message>
        <source>FB file</source>
        <translation>FB file</translation>
    </message>
</context>
<context>
    <name>OvMainGadget</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
</context>
<context>
    <name>OvObjectBoard</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>ObjectName</source>
        <translation>ObjectName</translation>
    </message>
</context>
<context>
    <name>OvPickFBDefineWidget</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Picking Polarity</source>
        <translation>Picking Polarity</translation>
    </message>
    <message>
        <source>negative</source>
        <translation>negative</translation>
    </message>
    <message>
        <source>positive</source>
        <translation>positive</translation>
    </message>
    <message>
        <source>(Pos./Neg.)</source>
        <translation>(Pos./Neg.)</translation>
    </message>
    <message>
        <source>Processing Length</source>
        <translation>Processing Length</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Minimum Offset</source>
        <translation>Minimum Offset</translation>
    </message>
    <message>
        <source>m</source>
        <translation>m</translation>
    </message>
    <message>
        <source>Quick Search Window</source>
        <translation>Quick Search Window</translation>
    </message>
    <message>
        <source>Maximum Offset</source>
        <translation>Maximum Offset</translation>
    </message>
    <message>
        <source>Tuning Search Window</source>
        <translation>Tuning Search Window</translation>
    </message>
    <message>
        <source>Amp. Threshold</source>
        <translation>Amp. Threshold</translation>
    </message>
    <message>
        <source>Total Shots</source>
        <translation>Total Shots</translation>
    </message>
    <message>
        <source>0=All</source>
        <translation>0=All</translation>
    </message>
    <message>
        <source>SNR Threshold</source>
        <translation>SNR Threshold</translation>
    </message>
    <message>
        <source>Shot Incresement</source>
        <translation>Shot Incresement</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Sign of the first swing in the file. It decides where a trace offers two swings.
Negative or positive. Default: positive</source>
        <translation>Sign of the first swing in the file. It decides where a trace offers two swings.
Negative or positive. Default: positive</translation>
    </message>
    <message>
        <source>How much of the recording is searched, from its first sample on.
0 to 9999 ms. Default: 0 (all of it)</source>
        <translation>How much of the recording is searched, from its first sample on.
0 to 9999 ms. Default: 0 (all of it)</translation>
    </message>
    <message>
        <source>Traces nearer to the shot than this get no pick.
0 to 9999 m. Default: 0 (no limit)</source>
        <translation>Traces nearer to the shot than this get no pick.
0 to 9999 m. Default: 0 (no limit)</translation>
    </message>
    <message>
        <source>How long the arrival must stand out of the noise, from the pick on.
0 to 9999 ms, not longer than the processing length. Default: 0 (1.2 dominant periods)</source>
        <translation>How long the arrival must stand out of the noise, from the pick on.
0 to 9999 ms, not longer than the processing length. Default: 0 (1.2 dominant periods)</translation>
    </message>
    <message>
        <source>Traces farther from the shot than this get no pick.
0 to 999999 m. Default: 0 (no limit)</source>
        <translation>Traces farther from the shot than this get no pick.
0 to 999999 m. Default: 0 (no limit)</translation>
    </message>
    <message>
        <source>How far the onset may lie from where the traces around lead to, before or after.
0 to 9999 ms. Default: 0 (0.6 dominant periods)</source>
        <translation>How far the onset may lie from where the traces around lead to, before or after.
0 to 9999 ms. Default: 0 (0.6 dominant periods)</translation>
    </message>
    <message>
        <source>Least amplitude of the arrival, as a share of the largest amplitude of its trace.
0.001 to 100, no unit; no arrival reaches more than 1. Default: 0.001</source>
        <translation>Least amplitude of the arrival, as a share of the largest amplitude of its trace.
0.001 to 100, no unit; no arrival reaches more than 1. Default: 0.001</translation>
    </message>
    <message>
        <source>How many gathers are picked.
0 to 9999 gathers. Default: 0 (all)</source>
        <translation>How many gathers are picked.
0 to 9999 gathers. Default: 0 (all)</translation>
    </message>
    <message>
        <source>Least signal-to-noise ratio: root mean square after the pick over that before it.
0 to 9999, no unit. Default: 0 (no demand)</source>
        <translation>Least signal-to-noise ratio: root mean square after the pick over that before it.
0 to 9999, no unit. Default: 0 (no demand)</translation>
    </message>
    <message>
        <source>Every how-manieth gather is picked, from the first of the file on.
1 to 9999 gathers. Default: 1 (every gather)</source>
        <translation>Every how-manieth gather is picked, from the first of the file on.
1 to 9999 gathers. Default: 1 (every gather)</translation>
    </message>
</context>
<context>
    <name>OvProjectCreateDlg</name>
    <message>
        <source>New Project</source>
        <translation>New Project</translation>
    </message>
    <message>
        <source>Project Name:</source>
        <translation>Project Name:</translation>
    </message>
    <message>
        <source>Data Folder:</source>
        <translation>Data Folder:</translation>
    </message>
    <message>
        <source>*If in red, the project name already exists.</source>
        <translation>*If in red, the project name already exists.</translation>
    </message>
    <message>
        <source>&lt;&gt;</source>
        <translation>&lt;&gt;</translation>
    </message>
    <message>
        <source>Description: </source>
        <translation>Description: </translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Cannot create new project!</source>
        <translation>Cannot create new project!</translation>
    </message>
    <message>
        <source>Select Data Path...</source>
        <translation>Select Data Path...</translation>
    </message>
</context>
<context>
    <name>OvProjectManageDlg</name>
    <message>
        <source>Project Management</source>
        <translation>Project Management</translation>
    </message>
    <message>
        <source> Project List</source>
        <translation> Project List</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Project Information</source>
        <translation>Project Information</translation>
    </message>
    <message>
        <source>Data Folder:</source>
        <translation>Data Folder:</translation>
    </message>
    <message>
        <source>&lt;&gt;</source>
        <translation>&lt;&gt;</translation>
    </message>
    <message>
        <source>*If the data folder name in red, it does not exist.</source>
        <translation>*If the data folder name in red, it does not exist.</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>&amp;Update</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Open Project</translation>
    </message>
    <message>
        <source>Cannot delete %1, it is being opened!</source>
        <translation>Cannot delete %1, it is being opened!</translation>
    </message>
    <message>
        <source>Delete Project</source>
        <translation>Delete Project</translation>
    </message>
    <message>
        <source>Select Folder.</source>
        <translation>Select Folder.</translation>
    </message>
</context>
<context>
    <name>OvSensitivityEditor</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
</context>
<context>
    <name>OvTarnpick</name>
    <message>
        <source>Maravel</source>
        <translation>Maravel</translation>
    </message>
    <message>
        <source>ToolBar</source>
        <translation>ToolBar</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>Open Recent</source>
        <translation>Open Recent</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Tools</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Window</translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation>&amp;New Window</translation>
    </message>
    <message>
        <source>&amp;New Project</source>
        <translation>&amp;New Project</translation>
    </message>
    <message>
        <source>&amp;Open Project</source>
        <translation>&amp;Open Project</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>&amp;Close Project</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>Alt+Q</source>
        <translation>Alt+Q</translation>
    </message>
    <message>
        <source>Maravel Help</source>
        <translation>Maravel Help</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Technical Support</source>
        <translation>Technical Support</translation>
    </message>
    <message>
        <source>Report Bug...</source>
        <translation>Report Bug...</translation>
    </message>
    <message>
        <source>About Maravel</source>
        <translation>About Maravel</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>Snapshot</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Clear Menu</translation>
    </message>
    <message>
        <source>&amp;Manage Project</source>
        <translation>&amp;Manage Project</translation>
    </message>
    <message>
        <source>Export FB to Text File</source>
        <translation>Export FB to Text File</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>简体中文</source>
        <translation>简体中文</translation>
    </message>
    <message>
        <source>&amp;Index Browser</source>
        <translation>&amp;Index Browser</translation>
    </message>
    <message>
        <source>FB to SEGY Header</source>
        <translation>FB to SEGY Header</translation>
    </message>
    <message>
        <source>Open Project Data Folder</source>
        <translation>Open Project Data Folder</translation>
    </message>
    <message>
        <source>New &amp;3D Window</source>
        <translation>New &amp;3D Window</translation>
    </message>
    <message>
        <source>Tile &amp;Horizontally</source>
        <translation>Tile &amp;Horizontally</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>&amp;Cascade</translation>
    </message>
    <message>
        <source>Tile &amp;Vertically</source>
        <translation>Tile &amp;Vertically</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>&amp;Tile</translation>
    </message>
    <message>
        <source>Parallel View</source>
        <translation>Parallel View</translation>
    </message>
    <message>
        <source>tes</source>
        <translation>tes</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>There are some jobs active, still want to close?</source>
        <translation>There are some jobs active, still want to close?</translation>
    </message>
    <message>
        <source>http://127.0.0.1:8642/ManualWeb/onlinehelp/en/</source>
        <translation>http://127.0.0.1:8642/ManualWeb/onlinehelp/en/</translation>
    </message>
    <message>
        <source>Import module [%1] successfully.</source>
        <translation>Import module [%1] successfully.</translation>
    </message>
    <message>
        <source>Import extension [%1] successfully.</source>
        <translation>Import extension [%1] successfully.</translation>
    </message>
</context>
<context>
    <name>OvTarnpickHelper</name>
    <message>
        <source>Nothing to capture!</source>
        <translation>Nothing to capture!</translation>
    </message>
    <message>
        <source>The data folder does not exist, the project cannot be opened.</source>
        <translation>The data folder does not exist, the project cannot be opened.</translation>
    </message>
</context>
<context>
    <name>OvTarnpickUtil</name>
    <message>
        <source>File:         </source>
        <translation>File:         </translation>
    </message>
    <message>
        <source>File Size:    </source>
        <translation>File Size:    </translation>
    </message>
    <message>
        <source>%1 Bytes.</source>
        <translation>%1 Bytes.</translation>
    </message>
    <message>
        <source>Sample Rate:  </source>
        <translation>Sample Rate:  </translation>
    </message>
    <message>
        <source>%1 μs.</source>
        <translation>%1 μs.</translation>
    </message>
    <message>
        <source>Trace Length: </source>
        <translation>Trace Length: </translation>
    </message>
    <message>
        <source>%1 ms.</source>
        <translation>%1 ms.</translation>
    </message>
    <message>
        <source>Data Format:  </source>
        <translation>Data Format:  </translation>
    </message>
    <message>
        <source>Total Traces: </source>
        <translation>Total Traces: </translation>
    </message>
    <message>
        <source>Segy Information</source>
        <translation>Segy Information</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>:</source>
        <translation>:</translation>
    </message>
    <message>
        <source>Console</source>
        <translation>Console</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
</context>
</TS>
