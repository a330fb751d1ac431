#!/usr/bin/env pwsh
#Requires -Version 7.0
<#
.SYNOPSIS
  Sorts a folder of downloads into folders by kind, and throws away what is old.
.PARAMETER Path
  The folder; the user's own downloads without it.
.EXAMPLE
  ./tidy-downloads.ps1 -Path ~/Downloads -OlderThan 90 -WhatIf
#>
[CmdletBinding(SupportsShouldProcess, ConfirmImpact = 'Medium')]
param(
    [Parameter(Position = 0, ValueFromPipeline)]
    [ValidateNotNullOrEmpty()]
    [string] $Path = (Join-Path $HOME 'Downloads'),

    [ValidateRange(1, 3650)]
    [int] $OlderThan = 365,

    [switch] $Report
)

Set-StrictMode -Version Latest
$ErrorActionPreference = 'Stop'

enum Verdict { Keep; Move; Remove }

$kinds = [ordered]@{
    Pictures  = @('.png', '.jpg', '.svg')
    Documents = @('.pdf', '.odt', '.txt', '.md')
    Archives  = @('.zip', '.gz', '.7z')
}

class Counter {
    [hashtable] $Counts = @{}
    [long] $Bytes = 0

    [void] Add([string] $name, [long] $size) {
        $this.Counts[$name] = 1 + ($this.Counts[$name] ?? 0)
        $this.Bytes += $size
    }

    [string] ToString() {
        $parts = foreach ($name in $this.Counts.Keys | Sort-Object) { '{0}: {1}' -f $name, $this.Counts[$name] }
        return ($parts -join ', ') + (' ({0:N1} MB)' -f ($this.Bytes / 1MB))
    }
}

function Get-Kind([System.IO.FileInfo] $File) {
    # The first kind that knows the extension.
    foreach ($kind in $kinds.Keys) {
        if ($File.Extension.ToLower() -in $kinds[$kind]) { return $kind }
    }
    return $null
}

function Get-Verdict {
    param([System.IO.FileInfo] $File, [datetime] $Limit)

    if ($File.LastWriteTime -lt $Limit -and -not $File.IsReadOnly) { return [Verdict]::Remove }
    switch -Regex ($File.Name) {
        '^\.'         { return [Verdict]::Keep }
        '\.(part|tmp)$' { return [Verdict]::Keep }
        default       { return (Get-Kind $File) ? [Verdict]::Move : [Verdict]::Keep }
    }
}

function Move-ToKind {
    [CmdletBinding(SupportsShouldProcess)]
    param([System.IO.FileInfo] $File)

    $target = Join-Path $Path (Get-Kind $File)
    if (-not (Test-Path -LiteralPath $target -PathType Container)) {
        New-Item -ItemType Directory -Path $target | Out-Null
    }
    if ($PSCmdlet.ShouldProcess($File.Name, "Move to $target")) {
        Move-Item -LiteralPath $File.FullName -Destination $target
    }
}

if (-not (Test-Path $Path)) {
    throw "No such folder:`n`t$Path"
}

$counter = [Counter]::new()
$limit = (Get-Date).AddDays(-$OlderThan)
Write-Verbose "Everything before $($limit.ToString('yyyy-MM-dd')) goes."

try {
    foreach ($file in Get-ChildItem -Path $Path -File) {
        $verdict = Get-Verdict -File $file -Limit $limit
        $counter.Add($verdict, $file.Length)
        switch ($verdict) {
            Move { Move-ToKind $file }
            Remove { Remove-Item -LiteralPath $file.FullName -WhatIf:$WhatIfPreference }
        }
    }
}
catch [System.UnauthorizedAccessException] {
    Write-Warning "Not allowed: $($_.Exception.Message)"
}
finally {
    Write-Host $counter -ForegroundColor Green
}

if ($Report) {
    $page = @"
<h1>Downloads of $env:USERNAME</h1>
<p>It's "$Path": $counter</p>
"@
    $page | Set-Content -Path (Join-Path $Path 'report.html') -Encoding utf8
    $note = @'
Nothing in here is $replaced, and a ' or " is only a character.
'@
    Write-Verbose $note
}
