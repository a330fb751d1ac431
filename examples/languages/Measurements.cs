// Reads measurements of a station ("time;sensor;value" in each line) and reports what stands out.
// Run it with:  dotnet run Measurements.cs measurements.csv
#nullable enable
using System;
using System.Collections.Generic;
using System.Globalization;
using System.IO;
using System.Linq;
using System.Text.RegularExpressions;
using System.Threading.Tasks;

#region The program

if (args.Length == 0)
{
    Console.Error.WriteLine("usage: Measurements FILE...");
    return 2;
}

var reports = await Task.WhenAll(args.Select(path => Report.ReadAsync(path)));
foreach (var report in reports.OrderByDescending(r => r.Count))
{
    Console.WriteLine(report);
}
return reports.All(r => r.Errors == 0) ? 0 : 1;

#endregion

/// <summary>One measurement; values are in the sensor's own unit.</summary>
public readonly record struct Sample(DateTime Time, string Sensor, double Value);

[Flags]
public enum Quality : byte
{
    Good = 0,
    Late = 1 << 0,
    OutOfRange = 0x02,
}

/* A report is filled while the file is read.
   Lines that cannot be parsed are counted, never dropped in silence. */
public sealed class Report(string name) : IDisposable
{
    private const string Pattern = @"^(?<time>[^;]+);(?<sensor>\w+);(?<value>-?\d+(\.\d+)?)$";
    private static readonly Regex Line = new(Pattern, RegexOptions.Compiled);
    private readonly Dictionary<string, List<Sample>> samples = [];

    public int Count => samples.Values.Sum(list => list.Count);
    public int Errors { get; private set; }
    public event EventHandler<Sample>? Found;

    public static async Task<Report> ReadAsync(string path)
    {
        var report = new Report(Path.GetFileName(path));
        await foreach (string line in File.ReadLinesAsync(path))
        {
            if (line is "" or ['#', ..]) continue; // comments of the file
            if (!report.TryAdd(line)) report.Errors++;
        }
        return report;
    }

    private bool TryAdd(string line)
    {
        Match match = Line.Match(line);
        if (!match.Success || !DateTime.TryParse(match.Groups["time"].Value, out var time)) return false;

        var culture = CultureInfo.InvariantCulture;
        var sample = new Sample(time, match.Groups["sensor"].Value, double.Parse(match.Groups["value"].Value, culture));
        if (!samples.TryGetValue(sample.Sensor, out List<Sample>? list))
        {
            samples[sample.Sensor] = list = new List<Sample>(capacity: 256);
        }
        list.Add(sample);
        Found?.Invoke(this, sample);
        return true;
    }

    public static Quality Judge(in Sample sample, TimeSpan age) => (sample.Value, age) switch
    {
        (double.NaN or > 1e6, _) => Quality.OutOfRange,
        (_, { TotalHours: > 24.0 }) => Quality.Late,
        _ => Quality.Good,
    };

    public override string ToString()
    {
        string separator = new('-', 40);
        char tab = '\t', quote = '\'';
        var rows = from entry in samples
                   let values = entry.Value.Select(s => s.Value).ToArray()
                   where values.Length > 0
                   orderby entry.Key ascending
                   select $"{entry.Key,-10}{tab}{values.Min():F1}{tab}{values.Max():F1}{tab}{values.Average():F2}";
        return $"""
            {quote}{name}{quote}: {Count} samples, {Errors} errors
            {separator}
            {string.Join(Environment.NewLine, rows)}
            """;
    }

    public void Dispose() => samples.Clear();
}
