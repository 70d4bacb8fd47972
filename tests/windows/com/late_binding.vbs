' Uses the page as a script does: by its name, with nothing but late binding.
Dim page, helpFile, helpContext
Set page = CreateObject("VexaPPE.ctlPPE")
WScript.Echo "Caption=" & page.Caption
WScript.Echo "Dirty=" & page.Dirty
helpFile = "old.chm"
helpContext = CLng(42)
page.GetPageInfo helpFile, helpContext
WScript.Echo "GetPageInfo=" & helpFile & "," & helpContext
page.BackColor = 255
page.ForeColor = 65280
page.Enabled = True
page.BackStyle = 1
page.BorderStyle = 1
page.Loading = True
WScript.Echo "BackColor=" & page.BackColor
WScript.Echo "ForeColor=" & page.ForeColor
WScript.Echo "Enabled=" & page.Enabled
WScript.Echo "BackStyle=" & page.BackStyle
WScript.Echo "BorderStyle=" & page.BorderStyle
WScript.Echo "Loading=" & page.Loading
If page.Font Is Nothing Then WScript.Echo "Font=Nothing"
page.Apply
WScript.Echo "Applied, Dirty=" & page.Dirty
