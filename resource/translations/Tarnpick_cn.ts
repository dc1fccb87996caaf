<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>OvAboutDialog</name>
    <message>
        <source>About Maravel</source>
        <translation>关于 Maravel</translation>
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
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;span style=&quot; font-size:10pt; color:#0000ff;&quot;&gt;Maravel 云：让全队共享初至&lt;/span&gt;&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;Copyright (C) 2026 Tarnpick 开发组&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;保留所有权利。&lt;/p&gt;
&lt;p style=&quot;margin-top:0px; margin-bottom:0px; margin-left:0px; margin-right:0px; -qt-block-indent:0; text-indent:0px;&quot;&gt;&lt;a href=&quot;https://tarnpick.example.org&quot;&gt;&lt;span style=&quot; text-decoration: underline; color:#1c6aa8;&quot;&gt;https://tarnpick.example.org&lt;/span&gt;&lt;/a&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>OvConsole</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
    </message>
    <message>
        <source>Warning: </source>
        <translation>警告：</translation>
    </message>
    <message>
        <source>Critical: </source>
        <translation>严重错误：</translation>
    </message>
    <message>
        <source>Fatal: </source>
        <translation>致命错误：</translation>
    </message>
</context>
<context>
    <name>OvLinkWindowDlg</name>
    <message>
        <source>Parallel View</source>
        <translation>并列显示</translation>
    </message>
    <message>
        <source>Link all</source>
        <translation>全部链接</translation>
    </message>
    <message>
        <source>Link the selected views</source>
        <translation>链接所选视图</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Delink the selected views</source>
        <translation>取消链接所选视图</translation>
    </message>
    <message>
        <source>Delink all</source>
        <translation>全部取消链接</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>SEGY File</source>
        <translation>SEGY 文件</translation>
    </message>
    <message>
        <source>Different type of data can not be displayed in a parallel view.</source>
        <translation>不同类型的数据不能并列显示。</translation>
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
        <translation>注册</translation>
    </message>
    <message>
        <source>password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Retrieve</source>
        <translation>找回</translation>
    </message>
    <message>
        <source>&amp;Login</source>
        <translation>登录(&amp;L)</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>The folder for your data cannot be determined or created. Set the environment variable TARNPICK_HOME to a folder that you can write to.</source>
        <translation>无法确定或创建用户数据文件夹。请将环境变量 TARNPICK_HOME 设置为一个可写文件夹。</translation>
    </message>
    <message>
        <source>Tarnpick</source>
        <translation>Tarnpick</translation>
    </message>
    <message>
        <source>Login failed!</source>
        <translation>登录失败！</translation>
    </message>
</context>
<context>
    <name>OvMainBillBoard</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
    </message>
    <message>
        <source>SEGY file</source>
        <translation>SEGY 文件</translation>
    </message>
    <message>
        <source>FB file</source>
        <translation>初至文件</translation>
    </message>
</context>
<context>
    <name>OvMainGadget</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
    </message>
</context>
<context>
    <name>OvObjectBoard</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
    </message>
    <message>
        <source>ObjectName</source>
        <translation>对象名称</translation>
    </message>
</context>
<context>
    <name>OvPickFBDefineWidget</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
    </message>
    <message>
        <source>Picking Polarity</source>
        <translation>拾取极性</translation>
    </message>
    <message>
        <source>negative</source>
        <translation>负</translation>
    </message>
    <message>
        <source>positive</source>
        <translation>正</translation>
    </message>
    <message>
        <source>(Pos./Neg.)</source>
        <translation>（正/负）</translation>
    </message>
    <message>
        <source>Processing Length</source>
        <translation>处理长度</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Minimum Offset</source>
        <translation>最小炮检距</translation>
    </message>
    <message>
        <source>m</source>
        <translation>m</translation>
    </message>
    <message>
        <source>Quick Search Window</source>
        <translation>快速搜索时窗</translation>
    </message>
    <message>
        <source>Maximum Offset</source>
        <translation>最大炮检距</translation>
    </message>
    <message>
        <source>Tuning Search Window</source>
        <translation>精细搜索时窗</translation>
    </message>
    <message>
        <source>Amp. Threshold</source>
        <translation>振幅门槛</translation>
    </message>
    <message>
        <source>Total Shots</source>
        <translation>总炮数</translation>
    </message>
    <message>
        <source>0=All</source>
        <translation>0=全部</translation>
    </message>
    <message>
        <source>SNR Threshold</source>
        <translation>信噪比门槛</translation>
    </message>
    <message>
        <source>Shot Incresement</source>
        <translation>炮间隔</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>默认</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Sign of the first swing in the file. It decides where a trace offers two swings.
Negative or positive. Default: positive</source>
        <translation>文件中首波的极性，当一道上有两个可选的摆动时由它决定。
取值为负或正。默认值：正</translation>
    </message>
    <message>
        <source>How much of the recording is searched, from its first sample on.
0 to 9999 ms. Default: 0 (all of it)</source>
        <translation>从第一个采样点起参与搜索的记录长度。
0 至 9999 ms。默认值：0（全部）</translation>
    </message>
    <message>
        <source>Traces nearer to the shot than this get no pick.
0 to 9999 m. Default: 0 (no limit)</source>
        <translation>离炮点比该值更近的道不拾取。
0 至 9999 m。默认值：0（不限）</translation>
    </message>
    <message>
        <source>How long the arrival must stand out of the noise, from the pick on.
0 to 9999 ms, not longer than the processing length. Default: 0 (1.2 dominant periods)</source>
        <translation>从拾取点起，初至波须高于噪声多长时间。
0 至 9999 ms，不得长于处理长度。默认值：0（1.2 个主周期）</translation>
    </message>
    <message>
        <source>Traces farther from the shot than this get no pick.
0 to 999999 m. Default: 0 (no limit)</source>
        <translation>离炮点比该值更远的道不拾取。
0 至 999999 m。默认值：0（不限）</translation>
    </message>
    <message>
        <source>How far the onset may lie from where the traces around lead to, before or after.
0 to 9999 ms. Default: 0 (0.6 dominant periods)</source>
        <translation>起跳点可偏离邻近各道所指时间的最大值，前后各一侧。
0 至 9999 ms。默认值：0（0.6 个主周期）</translation>
    </message>
    <message>
        <source>Least amplitude of the arrival, as a share of the largest amplitude of its trace.
0.001 to 100, no unit; no arrival reaches more than 1. Default: 0.001</source>
        <translation>初至波的最小振幅与该道最大振幅之比。
0.001 至 100，无单位；任何初至都不会超过 1。默认值：0.001</translation>
    </message>
    <message>
        <source>How many gathers are picked.
0 to 9999 gathers. Default: 0 (all)</source>
        <translation>拾取的道集数。
0 至 9999 个道集。默认值：0（全部）</translation>
    </message>
    <message>
        <source>Least signal-to-noise ratio: root mean square after the pick over that before it.
0 to 9999, no unit. Default: 0 (no demand)</source>
        <translation>最小信噪比：拾取点之后与之前的均方根振幅之比。
0 至 9999，无单位。默认值：0（不作要求）</translation>
    </message>
    <message>
        <source>Every how-manieth gather is picked, from the first of the file on.
1 to 9999 gathers. Default: 1 (every gather)</source>
        <translation>从文件的第一个道集起，每隔多少个道集拾取一个。
1 至 9999 个道集。默认值：1（逐个拾取）</translation>
    </message>
</context>
<context>
    <name>OvProjectCreateDlg</name>
    <message>
        <source>New Project</source>
        <translation>新建项目</translation>
    </message>
    <message>
        <source>Project Name:</source>
        <translation>项目名称：</translation>
    </message>
    <message>
        <source>Data Folder:</source>
        <translation>数据文件夹：</translation>
    </message>
    <message>
        <source>*If in red, the project name already exists.</source>
        <translation>*若显示为红色，则该项目名称已存在。</translation>
    </message>
    <message>
        <source>&lt;&gt;</source>
        <translation>&lt;&gt;</translation>
    </message>
    <message>
        <source>Description: </source>
        <translation>描述：</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cannot create new project!</source>
        <translation>无法创建新项目！</translation>
    </message>
    <message>
        <source>Select Data Path...</source>
        <translation>选择数据文件夹...</translation>
    </message>
</context>
<context>
    <name>OvProjectManageDlg</name>
    <message>
        <source>Project Management</source>
        <translation>项目管理</translation>
    </message>
    <message>
        <source> Project List</source>
        <translation> 项目列表</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Project Information</source>
        <translation>项目信息</translation>
    </message>
    <message>
        <source>Data Folder:</source>
        <translation>数据文件夹：</translation>
    </message>
    <message>
        <source>&lt;&gt;</source>
        <translation>&lt;&gt;</translation>
    </message>
    <message>
        <source>*If the data folder name in red, it does not exist.</source>
        <translation>*若数据文件夹显示为红色，则该文件夹不存在。</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>更新(&amp;U)</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>打开项目</translation>
    </message>
    <message>
        <source>Cannot delete %1, it is being opened!</source>
        <translation>无法删除 %1，该项目正处于打开状态！</translation>
    </message>
    <message>
        <source>Delete Project</source>
        <translation>删除项目</translation>
    </message>
    <message>
        <source>Select Folder.</source>
        <translation>选择文件夹。</translation>
    </message>
</context>
<context>
    <name>OvSensitivityEditor</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
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
        <translation>工具栏</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>Open Recent</source>
        <translation>最近打开的项目</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation>新建窗口(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;New Project</source>
        <translation>新建项目(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open Project</source>
        <translation>打开项目(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>关闭项目(&amp;C)</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>Alt+Q</source>
        <translation>Alt+Q</translation>
    </message>
    <message>
        <source>Maravel Help</source>
        <translation>Maravel 帮助</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Technical Support</source>
        <translation>技术支持</translation>
    </message>
    <message>
        <source>Report Bug...</source>
        <translation>报告问题...</translation>
    </message>
    <message>
        <source>About Maravel</source>
        <translation>关于 Maravel</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>截图</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>清空列表</translation>
    </message>
    <message>
        <source>&amp;Manage Project</source>
        <translation>管理项目(&amp;M)</translation>
    </message>
    <message>
        <source>Export FB to Text File</source>
        <translation>导出初至到文本文件</translation>
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
        <translation>索引浏览器(&amp;I)</translation>
    </message>
    <message>
        <source>FB to SEGY Header</source>
        <translation>初至写入 SEGY 道头</translation>
    </message>
    <message>
        <source>Open Project Data Folder</source>
        <translation>打开项目数据文件夹</translation>
    </message>
    <message>
        <source>New &amp;3D Window</source>
        <translation>新建三维窗口(&amp;3)</translation>
    </message>
    <message>
        <source>Tile &amp;Horizontally</source>
        <translation>横向平铺(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Cascade</source>
        <translation>层叠(&amp;C)</translation>
    </message>
    <message>
        <source>Tile &amp;Vertically</source>
        <translation>纵向平铺(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Tile</source>
        <translation>平铺(&amp;T)</translation>
    </message>
    <message>
        <source>Parallel View</source>
        <translation>并列显示</translation>
    </message>
    <message>
        <source>tes</source>
        <translation>tes</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>There are some jobs active, still want to close?</source>
        <translation>仍有任务正在运行，确定要关闭吗？</translation>
    </message>
    <message>
        <source>http://127.0.0.1:8642/ManualWeb/onlinehelp/en/</source>
        <translation>http://127.0.0.1:8642/ManualWeb/onlinehelp/zh/</translation>
    </message>
    <message>
        <source>Import module [%1] successfully.</source>
        <translation>模块 [%1] 加载成功。</translation>
    </message>
    <message>
        <source>Import extension [%1] successfully.</source>
        <translation>扩展 [%1] 加载成功。</translation>
    </message>
</context>
<context>
    <name>OvTarnpickHelper</name>
    <message>
        <source>Nothing to capture!</source>
        <translation>没有可截图的窗口！</translation>
    </message>
    <message>
        <source>The data folder does not exist, the project cannot be opened.</source>
        <translation>数据文件夹不存在，无法打开该项目。</translation>
    </message>
</context>
<context>
    <name>OvTarnpickUtil</name>
    <message>
        <source>File:         </source>
        <translation>文件名称：    </translation>
    </message>
    <message>
        <source>File Size:    </source>
        <translation>文件大小：    </translation>
    </message>
    <message>
        <source>%1 Bytes.</source>
        <translation>%1 字节。</translation>
    </message>
    <message>
        <source>Sample Rate:  </source>
        <translation>采样间隔：    </translation>
    </message>
    <message>
        <source>%1 μs.</source>
        <translation>%1 μs。</translation>
    </message>
    <message>
        <source>Trace Length: </source>
        <translation>记录长度：    </translation>
    </message>
    <message>
        <source>%1 ms.</source>
        <translation>%1 ms。</translation>
    </message>
    <message>
        <source>Data Format:  </source>
        <translation>数据格式：    </translation>
    </message>
    <message>
        <source>Total Traces: </source>
        <translation>总计道数：    </translation>
    </message>
    <message>
        <source>Segy Information</source>
        <translation>SEGY 信息</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>:</source>
        <translation>：</translation>
    </message>
    <message>
        <source>Console</source>
        <translation>控制台</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
</context>
</TS>
