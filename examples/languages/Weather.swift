#!/usr/bin/env swift
// Reads measurements of the weather from a JSON file and draws the temperatures as a chart of characters.
// Run it with:  swift Weather.swift weather.json

import Foundation

/// One day of measurements. Temperatures are in degrees Celsius.
struct Day: Codable, Identifiable, Hashable {
    let id: UUID
    var date: Date
    var lowest: Double
    var highest: Double
    var remark: String?

    var span: ClosedRange<Double> { lowest...highest }

    enum CodingKeys: String, CodingKey {
        case id, date
        case lowest = "min"
        case highest = "max"
        case remark
    }
}

enum WeatherError: Error, LocalizedError {
    case noFile(String)
    case noDays
    case impossible(Day)

    var errorDescription: String? {
        switch self {
        case .noFile(let path): return "\"\(path)\" does not exist"
        case .noDays: return "there are no days to draw"
        case let .impossible(day) where day.lowest.isNaN: return "a day without a temperature"
        case .impossible: return "the lowest is above the highest temperature"
        }
    }
}

protocol Chart {
    associatedtype Value
    static var width: Int { get }
    func row(for value: Value, in range: ClosedRange<Double>) -> String
}

extension Chart {
    /// The column of a temperature, 0 for the lowest of all.
    func column(of temperature: Double, in range: ClosedRange<Double>) -> Int {
        let length = range.upperBound - range.lowerBound
        guard length > 0 else { return 0 }
        return Int(((temperature - range.lowerBound) / length * Double(Self.width - 1)).rounded())
    }
}

/* A bar from the lowest to the highest temperature:
   "....####....", a mark at 0 degrees. */
final class BarChart: Chart {
    static let width = 0x3C
    private(set) var drawn = 0

    func row(for day: Day, in range: ClosedRange<Double>) -> String {
        defer { drawn += 1 }
        var cells = Array(repeating: Character("."), count: Self.width)
        for i in column(of: day.lowest, in: range)...column(of: day.highest, in: range) {
            cells[i] = "#"
        }
        if range.contains(0) { cells[column(of: 0, in: range)] = "|" }
        return String(cells)
    }
}

func read(_ path: String) throws -> [Day] {
    guard FileManager.default.fileExists(atPath: path) else { throw WeatherError.noFile(path) }
    let decoder = JSONDecoder()
    decoder.dateDecodingStrategy = .iso8601
    let days = try decoder.decode([Day].self, from: Data(contentsOf: URL(fileURLWithPath: path)))
    if let wrong = days.first(where: { !($0.lowest <= $0.highest) }) {
        throw WeatherError.impossible(wrong)
    }
    return days.sorted { $0.date < $1.date }
}

@MainActor
func draw<C: Chart>(_ days: [Day], with chart: C) throws where C.Value == Day {
    guard let low = days.map(\.lowest).min(), let high = days.map(\.highest).max() else {
        throw WeatherError.noDays
    }
    let formatter = DateFormatter()
    formatter.dateFormat = "yyyy-MM-dd"
    for day in days {
        let remark = day.remark.map { "  // \($0)" } ?? ""
        print(formatter.string(from: day.date), chart.row(for: day, in: low...high), remark, separator: "\t")
    }
    let legend = """
        from \(String(format: "%.1f", low)) to \(high) degrees;
        "|" is the freezing point
        """
    print(legend)
}

let path = CommandLine.arguments.dropFirst().first ?? "weather.json"
do {
    let chart = BarChart()
    try draw(read(path), with: chart)
    #if DEBUG
    debugPrint(#"drawn with "raw" care: \n"#, chart.drawn as Any)
    #endif
} catch let error as WeatherError {
    fputs("weather: \(error.localizedDescription)\n", stderr)
    exit(1)
} catch {
    fatalError("unexpected: \(error)")
}
