<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>OvBaseUtil</name>
    <message>
        <source>The data folder %1 cannot be created. Check that its parent folder can be written.</source>
        <translation>无法创建数据文件夹 %1。请检查其上级文件夹是否可写。</translation>
    </message>
    <message>
        <source>http://127.0.0.1:8642/ManualWeb/onlinehelp/en/</source>
        <translation>http://127.0.0.1:8642/ManualWeb/onlinehelp/zh/</translation>
    </message>
</context>
<context>
    <name>OvDatabase</name>
    <message>
        <source>The user %1 cannot be read from the database %2.</source>
        <translation>无法从数据库 %2 中读取用户 %1。</translation>
    </message>
    <message>
        <source>another program is working on it</source>
        <translation>另一个程序正在使用它</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message>
        <source>The database %1 cannot be opened (%2). Check that its folder exists and can be written, and that the disk has room.</source>
        <translation>无法打开数据库 %1（%2）。请检查其所在文件夹是否存在且可写，以及磁盘空间是否充足。</translation>
    </message>
    <message>
        <source>The database %1 cannot be written (%2). Check that the file can be written and that the disk has room.</source>
        <translation>无法写入数据库 %1（%2）。请检查文件是否可写以及磁盘空间是否充足。</translation>
    </message>
    <message>
        <source>The database %1 cannot be read (%2).</source>
        <translation>无法读取数据库 %1（%2）。</translation>
    </message>
    <message>
        <source>The database %1 is damaged or no database (%2). It was left as it is; put a backup in its place, or move it away to start with an empty one.</source>
        <translation>数据库 %1 已损坏或不是数据库（%2）。文件保持原样；请用备份替换它，或将其移走以便从空数据库开始。</translation>
    </message>
    <message>
        <source>The database %1 belongs to another program. It was left as it is; move it away to start with an empty one.</source>
        <translation>数据库 %1 属于其他程序。文件保持原样；请将其移走以便从空数据库开始。</translation>
    </message>
    <message>
        <source>The database %1 was written by a newer version of this program (its layout is number %2). It was left as it is; open it with that version.</source>
        <translation>数据库 %1 由本程序的较新版本写入（结构版本号为 %2）。文件保持原样；请使用该版本打开。</translation>
    </message>
    <message>
        <source>The database %1 is read-only. Allow writing to the file and its folder.</source>
        <translation>数据库 %1 为只读。请允许写入该文件及其所在文件夹。</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>它不是文件</translation>
    </message>
    <message>
        <source>the file is empty, its log is not</source>
        <translation>文件为空，但其日志不为空</translation>
    </message>
    <message>
        <source>The database %1 cannot be brought up to date (%2). It was left as it is.</source>
        <translation>无法升级数据库 %1（%2）。文件保持原样。</translation>
    </message>
    <message>
        <source>The value %1 of type %2 cannot be stored.</source>
        <translation>无法保存类型为 %2 的值 %1。</translation>
    </message>
</context>
<context>
    <name>OvTaskMonitor</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Clear finished</source>
        <translation>清除已结束的任务</translation>
    </message>
    <message>
        <source>Task Monitor</source>
        <translation>任务监视器</translation>
    </message>
</context>
<context>
    <name>OvTaskRow</name>
    <message>
        <source>Ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>正在取消</translation>
    </message>
    <message>
        <source>Loading</source>
        <translation>正在加载</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>正在运行</translation>
    </message>
    <message>
        <source>Finished</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Cancel %1</source>
        <translation>取消 %1</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>OvTaskView</name>
    <message>
        <source>Task</source>
        <translation>任务</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Elapsed</source>
        <translation>已用时间</translation>
    </message>
    <message>
        <source>Remaining</source>
        <translation>剩余时间</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Task list</source>
        <translation>任务列表</translation>
    </message>
    <message>
        <source>No jobs</source>
        <translation>没有任务</translation>
    </message>
</context>
</TS>
